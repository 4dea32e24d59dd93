/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef FIGURES_H
#define FIGURES_H


#include <string>
#include <utility>
#include <vector>


/*!	What a program has measured, printed as one JSON object. */
class Figures {
public:
	void Add(const char* key, double value) { fValues.emplace_back(key, value); }
	void Print() const;

private:
	std::vector<std::pair<std::string, double>> fValues;
};


#endif // FIGURES_H
