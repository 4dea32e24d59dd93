/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <TextConversion.h>

#include <cstring>

#include <QUtf8StringView>

#include <TextCutting.h>
#include <Utf8.h>


// Accents and the like on one letter; Unicode's "stream-safe" text has no more.
static const int kMostMarks = 30;


// In UTF-16 units. What is on the screen has no room for more.
static const qsizetype kLongestTitle = 1000;
static const qsizetype kLongestToolTip = 4000;


static QString
decode(const char* bytes)
{
	const qsizetype length = static_cast<qsizetype>(strlen(bytes));
	if (QUtf8StringView(bytes, length).isValidUtf8())
		return QString::fromUtf8(bytes, length);

	const std::u16string units = to_utf16(bytes, static_cast<size_t>(length));
	return QString::fromUtf16(units.data(), static_cast<qsizetype>(units.size()));
}


/*!	The text as it stands, with all its blanks, and in lines that only line feeds end. */
static QString
as_markup(QString text)
{
	text.replace(QLatin1Char('\t'), QLatin1Char(' '));
	text.replace(QChar::CarriageReturn, QChar::ReplacementCharacter);
	text.replace(QChar::LineSeparator, QChar::ReplacementCharacter);
	text.replace(QChar::ParagraphSeparator, QChar::ReplacementCharacter);
	text = text.toHtmlEscaped().replace(QLatin1Char('\n'), QLatin1String("<br>"));
	return QLatin1String("<div style=\"white-space:pre\">") + text + QLatin1String("</div>");
}


QString
text_from_bytes(const char* bytes, text_use use)
{
	if (bytes == NULL)
		return QString();

	QString text = decode(bytes);
	switch (use) {
		case kPlainText:
			break;
		case kMnemonicText:
			text.replace(QLatin1Char('&'), QLatin1String("&&"));
			// What follows a tab would stand in the column of the shortcuts.
			text.replace(QLatin1Char('\t'), QLatin1Char(' '));
			break;
		case kTitleText:
			text = shortened_text(text, kLongestTitle);
			text.replace(QLatin1String("[*]"), QLatin1String("[*][*]"));
			break;
		case kToolTipText:
			text = as_markup(shown_text(shortened_text(text, kLongestToolTip)));
			break;
	}
	return text;
}


/*!	\return The character that begins at an index. */
static char32_t
character_at(const QString& text, qsizetype index)
{
	const QChar unit = text[index];
	const bool isPair = unit.isHighSurrogate() && index + 1 < text.size()
		&& text[index + 1].isLowSurrogate();
	return isPair ? QChar::surrogateToUcs4(unit, text[index + 1]) : unit.unicode();
}


/*!	Whether no font ever has a shape for it. */
static bool
is_shapeless(char32_t character)
{
	const bool isControl = QChar::category(character) == QChar::Other_Control && character != U'\t'
		&& character != U'\n' && character != U'\r';
	return isControl || QChar::isNonCharacter(character);
}


QString
shown_text(QString text)
{
	int marks = 0;
	qsizetype units = 1;
	for (qsizetype index = 0; index < text.size(); index += units) {
		const char32_t character = character_at(text, index);
		units = QChar::requiresSurrogates(character) ? 2 : 1;
		if (character >= U' ' && character <= U'~') {
			marks = 0;
			continue;
		}
		// A format character, as one that joins, does not end a pile of marks.
		const bool isMark = QChar::isMark(character);
		if (isMark)
			marks++;
		else if (QChar::category(character) != QChar::Other_Format)
			marks = 0;
		if (is_shapeless(character) || (isMark && marks > kMostMarks)) {
			for (qsizetype unit = index; unit < index + units; unit++)
				text[unit] = QChar::ReplacementCharacter;
		}
	}
	return text;
}


static bool
is_between(char32_t character, char32_t first, char32_t last)
{
	return character >= first && character <= last;
}


/*!	The letters that syllables of Hangul are composed of. */
static bool
is_jamo(char32_t character)
{
	return is_between(character, 0x1100, 0x11ff) || is_between(character, 0xa960, 0xa97f)
		|| is_between(character, 0xd7b0, 0xd7ff);
}


/*!	Two of them are a flag. */
static bool
is_regional_indicator(char32_t character)
{
	return is_between(character, 0x1f1e6, 0x1f1ff);
}


bool
characters_join(char32_t before, char32_t after)
{
	const char32_t kNonJoiner = 0x200c;
	const char32_t kJoiner = 0x200d;
	// In scripts of India and around it a consonant goes below the one before.
	const unsigned char kVirama = 9;
	if (before < 0x80 && after < 0x80)
		return false;
	const bool isSkinTone = is_between(after, 0x1f3fb, 0x1f3ff);
	const bool isTag = is_between(after, 0xe0020, 0xe007f);
	return QChar::isMark(after) || after == kJoiner || after == kNonJoiner || before == kJoiner
		|| QChar::combiningClass(before) == kVirama || isSkinTone || isTag
		|| (is_jamo(before) && is_jamo(after))
		|| (is_regional_indicator(before) && is_regional_indicator(after));
}


QByteArray
bytes_from_text(const QString& text)
{
	return text.toUtf8();
}
