/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TEXT_CONVERSION_H
#define TEXT_CONVERSION_H


#include <QByteArray>
#include <QString>


// Where a text is shown, and so what Qt would take for more than text.
enum text_use {
	// Nothing is special.
	kPlainText,
	// '&' would underline a letter: buttons, menus, labels with a field.
	kMnemonicText,
	// "[*]" would mark a changed document.
	kTitleText,
	// '<' would start markup, and blanks and ends of lines would be one blank.
	kToolTipText
};


/*!	The characters of bytes that should be UTF-8, one U+FFFD for every byte that is not, prepared so
	that they are shown as they stand; in tool tips by shown_text(). NULL is the empty text. A title
	or a tool tip of thousands of letters ends in an ellipsis.
*/
QString text_from_bytes(const char* bytes, text_use use = kPlainText);

/*!	What is drawn of a text, with as many UTF-16 units: U+FFFD stands for control characters and
	those that Unicode keeps free, as Qt would look for them in every font there is, and
	for marks that pile up on a letter, which it takes long to place.
	Tabs and line ends stay.
*/
QString shown_text(QString text);

/*!	Whether two characters that stand next to each other are shown as one, or the second one as part
	of what is before it.
*/
bool characters_join(char32_t before, char32_t after);

QByteArray bytes_from_text(const QString& text);


#endif // TEXT_CONVERSION_H
