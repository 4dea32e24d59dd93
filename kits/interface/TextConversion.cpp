/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <TextConversionPrivate.h>

#include <cstring>

#include <QUtf8StringView>

#include <Utf8Private.h>


// Accents and the like on one letter; Unicode's "stream-safe" text has no more.
static const int kMostMarks = 30;


static QString
decode(const char* bytes, qsizetype length)
{
	if (QUtf8StringView(bytes, length).isValidUtf8())
		return QString::fromUtf8(bytes, length);

	const std::u16string units = to_utf16(bytes, size_t(length));
	return QString::fromUtf16(units.data(), qsizetype(units.size()));
}


QString
text_from_bytes(const char* bytes, text_use use)
{
	return text_from_bytes(bytes, bytes != NULL ? qsizetype(strlen(bytes)) : 0, use);
}


QString
text_from_bytes(const char* bytes, qsizetype length, text_use use)
{
	if (bytes == NULL || length <= 0)
		return QString();

	QString text = decode(bytes, length);
	switch (use) {
		case PLAIN_TEXT:
			break;
		case MNEMONIC_TEXT:
			text.replace(QLatin1Char('&'), QLatin1String("&&"));
			// What follows a tab would stand in the column of the shortcuts.
			text.replace(QLatin1Char('\t'), QLatin1Char(' '));
			break;
		case TITLE_TEXT:
			text.replace(QLatin1String("[*]"), QLatin1String("[*][*]"));
			break;
		case TOOL_TIP_TEXT:
			text = QLatin1String("<span>") + text.toHtmlEscaped() + QLatin1String("</span>");
			break;
	}
	return text;
}


QString
shown_text(QString text)
{
	int marks = 0;
	for (QChar& unit : text) {
		if (unit >= u' ' && unit <= u'~') {
			marks = 0;
			continue;
		}
		marks = unit.isMark() ? marks + 1 : 0;
		const bool isControl = unit.category() == QChar::Other_Control && unit != u'\t'
			&& unit != u'\n';
		if (isControl || marks > kMostMarks)
			unit = QChar::ReplacementCharacter;
	}
	return text;
}


QByteArray
bytes_from_text(const QString& text)
{
	return text.toUtf8();
}
