/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <FontConversion.h>

#include <cmath>
#include <memory>
#include <vector>

#include <QApplication>
#include <QScreen>


// In pixels, where the desktop shows text in its usual size.
static const float kDefaultSize = 12;
static const qreal kUsualDotsPerInch = 96;


struct CachedFont {
	explicit CachedFont(const BFont& font);

	const BFont key;
	QFont font;
	QFontMetricsF metrics;
	font_height height;
};

// There are few: each size that is used, plain and bold.
static std::vector<std::unique_ptr<CachedFont>> sCache;


static QFont
make_font(const BFont& font)
{
	QFont result;
	// With a second family QFont would at once look for fonts with the letters that this one
	// lacks, instead of when the first one is shown. Without the family it goes by the hint.
	result.setFamilies({QStringLiteral("Noto Sans")});
	result.setStyleHint(QFont::SansSerif);
	result.setPixelSize(std::max(1, static_cast<int>(std::lround(font.Size()))));
	result.setBold((font.Face() & B_BOLD_FACE) != 0);
	result.setItalic((font.Face() & B_ITALIC_FACE) != 0);
	return result;
}


/*!	Whole pixels, so that baselines are sharp. */
static font_height
height_of(const QFontMetricsF& metrics)
{
	font_height height;
	height.ascent = static_cast<float>(std::ceil(metrics.ascent()));
	height.descent = static_cast<float>(std::ceil(metrics.descent()));
	height.leading = static_cast<float>(std::max(0.0, std::ceil(metrics.leading())));
	return height;
}


CachedFont::CachedFont(const BFont& bfont)
	: key(bfont),
	  font(make_font(bfont)),
	  metrics(font),
	  height(height_of(metrics))
{
}


static const CachedFont&
find(const BFont& font)
{
	for (const auto& cached : sCache) {
		if (cached->key == font)
			return *cached;
	}
	sCache.push_back(std::make_unique<CachedFont>(font));
	return *sCache.back();
}

const QFont&
font_to_toolkit(const BFont& font)
{
	return find(font).font;
}


const QFontMetricsF&
metrics_of_font(const BFont& font)
{
	return find(font).metrics;
}


const font_height&
height_of_font(const BFont& font)
{
	return find(font).height;
}


/*!	The size follows the text size that the user has set for the desktop. */
void
init_fonts()
{
	const qreal dotsPerInch = QGuiApplication::primaryScreen()->logicalDotsPerInchY();
	BFont* plain = new BFont;
	plain->SetSize(std::round(kDefaultSize * static_cast<float>(dotsPerInch / kUsualDotsPerInch)));
	BFont* bold = new BFont(*plain);
	bold->SetFace(B_BOLD_FACE);

	be_plain_font = plain;
	be_bold_font = bold;
	QApplication::setFont(font_to_toolkit(*plain));
}


void
exit_fonts()
{
	sCache.clear();
	delete be_plain_font;
	delete be_bold_font;
	be_plain_font = NULL;
	be_bold_font = NULL;
}
