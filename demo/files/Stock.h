/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef DEMO_STOCK_H
#define DEMO_STOCK_H


namespace demo {


class FileNode;


/*!	Puts everything that the server offers for download into its root folder. */
void fill_stock(FileNode& root);


} // namespace demo


#endif // DEMO_STOCK_H
