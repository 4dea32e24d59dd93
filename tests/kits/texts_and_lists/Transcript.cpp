/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Transcript.h"

#include <ScrollView.h>

#include "UserInput.h"
#include "WaitFor.h"
#include "WindowInput.h"


void
Transcript::SetUp()
{
	fText = new BTextView("text");
	fText->MakeEditable(false);
	fText->SetStylable(true);
	fWindow = new WindowWithView(300, 150);
	fWindow->Add(new BScrollView("scroll", fText, B_WILL_DRAW, false, true));
	fWindow->ShowIt();
	fText->MakeFocus(true);
}


/*!	It is on the screen at once, and nothing is scrolled. */
void
Transcript::Append(const std::string& text, int times)
{
	for (int i = 0; i < times; i++) {
		fText->Insert(fText->TextLength(), text.data(), static_cast<int32>(text.size()));
		fText->PointAt(fText->TextLength());
	}
}


bool
Transcript::WaitUntilShown()
{
	return WaitFor([this]() {
		return !waits_for_frame(fText);
	});
}


std::string
Transcript::Press(char key, uint32 modifiers)
{
	press_window_key(fWindow, key, modifiers);
	return Selection();
}


std::string
Transcript::Selection() const
{
	int32 start;
	int32 end;
	fText->GetSelection(&start, &end);
	return std::to_string(start) + ".." + std::to_string(end);
}


BPoint
Transcript::Before(int32 offset) const
{
	const BPoint place = fText->PointAt(offset);
	return BPoint(place.x + 1, place.y + 5);
}


BPoint
Transcript::Behind(int32 offset) const
{
	const BPoint place = fText->PointAt(offset + 1);
	return BPoint(place.x - 1, place.y + 5);
}


/*!	Nothing is laid out for that. */
int32
Transcript::Top() const
{
	return static_cast<int32>(accessible_position_at(fText, BPoint(5, 8)));
}


bool
Transcript::IsSeen(int32 offset) const
{
	float height;
	const BPoint place = fText->PointAt(offset, &height);
	return fText->Bounds().Contains(place)
		&& fText->Bounds().Contains(BPoint(place.x, place.y + height - 1));
}
