/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <cstring>
#include <string>

#include <QList>
#include <QString>

#include "Require.h"
#include "TextConversion.h"
#include "TextCutting.h"
#include "Utf8.h"


static const int kMostMarks = 30;


static bool
is_control(QChar unit)
{
	return unit.category() == QChar::Other_Control && unit != QLatin1Char('\t')
		&& unit != QLatin1Char('\n') && unit != QLatin1Char('\r');
}


/*!	What is drawn of a text. */
static void
check_shown(const QString& text)
{
	const QString shown = shown_text(text);
	require(shown.size() == text.size(), "as many units");
	require(shown.isValidUtf16(), "whole characters");
	require(shown_text(shown) == shown, "doing it again changes nothing");
	for (qsizetype i = 0; i < shown.size(); i++) {
		const QChar unit = shown[i];
		require(unit == text[i] || unit == QChar::ReplacementCharacter, "replaced by U+FFFD only");
		require(!is_control(unit), "no control characters");
		require(!unit.isNonCharacter(), "no noncharacters");
	}
	int marks = 0;
	for (const char32_t character : shown.toUcs4()) {
		if (QChar::isMark(character))
			marks++;
		else if (QChar::category(character) != QChar::Other_Format)
			marks = 0;
		require(marks <= kMostMarks, "no more marks on a letter");
	}
}


/*!	What the toolkit would take for more than text stands as it is. */
static void
check_uses(const std::string& bytes, const QString& text)
{
	QString label = text_from_bytes(bytes.c_str(), kMnemonicText);
	label.replace(QLatin1String("&&"), QLatin1String("\x01"));
	require(!label.contains(QLatin1Char('&')), "no mnemonic");
	require(!label.contains(QLatin1Char('\t')), "nothing in the column of the shortcuts");

	QString title = text_from_bytes(bytes.c_str(), kTitleText);
	require(title.size() <= 2004, "a title ends");
	title.replace(QLatin1String("[*][*]"), QLatin1String("\x01"));
	require(!title.contains(QLatin1String("[*]")), "no mark of a changed document");

	QString markup = text_from_bytes(bytes.c_str(), kToolTipText);
	require(markup.startsWith(QLatin1String("<div ")) && markup.endsWith(QLatin1String("</div>")),
		"markup that says that the text is none");
	markup = markup.mid(markup.indexOf(QLatin1Char('>')) + 1);
	markup.chop(6);
	markup.replace(QLatin1String("<br>"), QLatin1String("\n"));
	require(!markup.contains(QLatin1Char('<')) && !markup.contains(QLatin1Char('>')), "no markup");
	markup.replace(QLatin1String("&lt;"), QLatin1String("<"));
	markup.replace(QLatin1String("&gt;"), QLatin1String(">"));
	markup.replace(QLatin1String("&quot;"), QLatin1String("\""));
	markup.replace(QLatin1String("&amp;"), QLatin1String("&"));
	const qsizetype most = 4000;
	const QString kept = text.size() > most ? markup.chopped(1) : markup;
	require(kept.size() <= most && kept.size() <= text.size(), "a tool tip ends");
	for (qsizetype i = 0; i < kept.size(); i++) {
		const bool isBlank = text[i] == QLatin1Char('\t') && kept[i] == QLatin1Char(' ');
		require(kept[i] == text[i] || isBlank || kept[i] == QChar::ReplacementCharacter,
			"all that is told is the text");
	}
}


static void
check_front(const QString& text, qsizetype count)
{
	const QString front = front_of_text(text, count);
	require(text.startsWith(front), "the front");
	require(front.size() <= count, "not more than that");
	require(front.isValidUtf16(), "no half of a character");
	require(front.size() == text.size() || front.size() > count - 64, "not much less than that");
	const QString shortened = shortened_text(text, count);
	require(front.size() < text.size() ? shortened == front + QChar(0x2026) : shortened == text,
		"an ellipsis where something is missing");
}


/*!	The first byte says how much of the text there is room for. */
extern "C" int
LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
	if (size == 0)
		return 0;
	// What a view is given ends at a NUL.
	std::string bytes(reinterpret_cast<const char*>(data + 1), size - 1);
	bytes.resize(strlen(bytes.c_str()));
	const QString text = text_from_bytes(bytes.c_str());
	const std::u16string units = to_utf16(bytes.data(), bytes.size());
	require(text == QStringView(units), "a character each, U+FFFD for what is none");
	check_shown(text);
	check_uses(bytes, text);
	check_front(text, data[0]);
	return 0;
}
