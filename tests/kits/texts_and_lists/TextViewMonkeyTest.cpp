/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
// Everything that can be done to a transcript, by the program and by the user, in any order.
#include <TextView.h>

#include <algorithm>
#include <string>

#include <gtest/gtest.h>

#include <Font.h>

#include "RandomUser.h"
#include "Transcript.h"
#include "Utf8.h"
#include "WaitFor.h"


static const int kSteps = 600;

// In bytes.
static const int32 kMaxText = 6000;

// Ends of lines and characters in all states, so that what is joined by chance is something else.
static const std::string kPieces[] = {"\n", "\r", "\r\n", "\xe2\x80\xa9", "\xe2\x80\xa8", "\t", " ",
	"a", "a word ", "words and more words that are wrapped in every window of this size. ", "\xc3",
	"\xa9", "\xf0\x9f", "\x98\x80", "\xf0\x9f\x98\x80", "e\xcc\x81", "\xff",
	"\xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d ", "\xe4\xbd\xa0\xe5\xa5\xbd", "\x01", "\xef\xb7\x90",
	std::string(1100, 'w'), std::string("\n") + "line " + "\n" + "line" + "\n\n"};


/*!	A text view in a window beside what it should contain. */
class TextViewMonkeyTest : public Transcript, public testing::WithParamInterface<int> {
protected:
	int32 Offset(RandomUser& user) { return user.Number(static_cast<int32>(fBytes.size()) + 1); }

	void Change(RandomUser& user);
	void Style(RandomUser& user);
	void Show(RandomUser& user);
	void Act(RandomUser& user);
	std::string Complaint(RandomUser& user);

	std::string fBytes;
};


static std::string
any_bytes(RandomUser& user)
{
	std::string bytes;
	for (int32 i = user.Number(8); i >= 0; i--)
		bytes += kPieces[user.Number(static_cast<int32>(std::size(kPieces)))];
	return bytes;
}


/*!	As UTF-8 with a line feed for each end of a line. */
static std::string
shown_text(const std::string& bytes)
{
	std::string shown;
	size_t at = 0;
	while (at < bytes.size()) {
		char32_t code = 0;
		const size_t length = decode_utf8(bytes.data() + at, bytes.size() - at, &code);
		if (bytes.compare(at, 2, "\r\n") == 0)
			at++;
		if (bytes[at] == '\r' || bytes[at] == '\n' || (length == 3 && code == 0x2029))
			shown += '\n';
		else
			shown += length == 0 ? "\xef\xbf\xbd" : bytes.substr(at, length);
		at += std::max<size_t>(length, 1);
	}
	return shown;
}


void
TextViewMonkeyTest::Change(RandomUser& user)
{
	const int32 size = static_cast<int32>(fBytes.size());
	std::string added = any_bytes(user);
	const int32 start = Offset(user);
	if (size > kMaxText || user.Number(40) == 0) {
		fText->SetText(added.c_str());
		fBytes = added;
	} else if (user.Number(6) == 0) {
		fText->Insert(start, added.data(), static_cast<int32>(added.size()));
		fBytes.insert(static_cast<size_t>(start), added);
	} else {
		fText->Insert(size, added.data(), static_cast<int32>(added.size()));
		fBytes += added;
	}
}


void
TextViewMonkeyTest::Style(RandomUser& user)
{
	BFont font(user.Number(2) == 0 ? be_plain_font : be_bold_font);
	font.SetSize(static_cast<float>(8 + 8 * user.Number(4)));
	const rgb_color color = {static_cast<uint8>(user.Number(256)), 0, 0, 255};
	const int32 start = Offset(user);
	switch (user.Number(8)) {
		case 0:
			fText->SetFont(&font);
			break;
		case 1:
			fText->SetWordWrap(user.Number(4) != 0);
			break;
		case 2:
			fText->MakeSelectable(user.Number(4) != 0);
			break;
		case 3:
			fText->SetFontAndColor(&font, B_FONT_ALL, &color);
			break;
		default:
			fText->SetFontAndColor(start, start + user.Number(2000), &font, B_FONT_ALL, &color);
			break;
	}
}


void
TextViewMonkeyTest::Show(RandomUser& user)
{
	const int32 offset = Offset(user);
	switch (user.Number(6)) {
		case 0:
			fText->Select(offset, Offset(user));
			break;
		case 1:
			fText->ScrollToOffset(offset);
			break;
		case 2:
			fText->ScrollToOffset(fText->TextLength());
			break;
		case 3:
			static_cast<void>(fText->PointAt(offset));
			break;
		case 4:
		{
			fWindow->ResizeTo(static_cast<float>(40 + user.Number(400)),
				static_cast<float>(10 + user.Number(300)));
			// The window does that when it is served.
			bool hasServed = false;
			WaitFor([&hasServed]() {
				const bool result = hasServed;
				hasServed = true;
				return result;
			});
			break;
		}
		default:
			user.Look();
			break;
	}
}


void
TextViewMonkeyTest::Act(RandomUser& user)
{
	switch (user.Number(9)) {
		case 0:
		case 1:
			Change(user);
			break;
		case 2:
			Style(user);
			break;
		case 3:
			Show(user);
			break;
		case 4:
			user.PressKey();
			break;
		case 5:
			user.MoveMouse();
			break;
		case 6:
			user.TurnWheel();
			break;
		case 7:
			user.ScrollBar();
			break;
		default:
			user.UseScreenReader();
			break;
	}
}


std::string
TextViewMonkeyTest::Complaint(RandomUser& user)
{
	if (fText->TextLength() != static_cast<int32>(fBytes.size()) || fText->Text() != fBytes)
		return "other bytes";
	int32 start;
	int32 end;
	fText->GetSelection(&start, &end);
	if (start < 0 || start > end || end > static_cast<int32>(fBytes.size()))
		return "the selection is outside of the text";
	return user.Complaint(shown_text(fBytes));
}


TEST_P(TextViewMonkeyTest, WhateverIsDone_TheTextStaysSound)
{
	RandomUser user(fText, static_cast<uint32>(GetParam()));
	for (int i = 0; i < kSteps; i++) {
		Act(user);
		ASSERT_EQ(Complaint(user), "") << "step " << i;
	}

	// The end is found from everywhere.
	fText->SetWordWrap(true);
	fText->ScrollToOffset(fText->TextLength());
	EXPECT_TRUE(fText->Bounds().Contains(fText->PointAt(fText->TextLength())));
}


INSTANTIATE_TEST_SUITE_P(Seeds, TextViewMonkeyTest, testing::Range(0, 4));
