/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef RANDOM_USER_H
#define RANDOM_USER_H


#include <random>
#include <string>

#include <SupportDefs.h>


class BView;
class QAccessibleTextInterface;
class QWidget;


/*!	Does anything to a text of many lines that keyboard, mouse and screen reader can do. What that
	is follows from the seed alone.
	Main thread only.
*/
class RandomUser {
public:
	// The view is borrowed.
	RandomUser(BView* text, uint32 seed);

	// Less than a limit.
	int32 Number(int32 limit);

	void PressKey();
	void MoveMouse();
	void TurnWheel();
	void ScrollBar();
	// Asks and moves the caret or the selection.
	void UseScreenReader();
	// Has the view painted now.
	void Look();

	/*!	\return What is wrong with what a screen reader finds, empty if nothing is.
		\param text What is shown, as UTF-8 with a line feed for each end of a line.
	*/
	std::string Complaint(const std::string& text);

private:
	QAccessibleTextInterface* _Reader() const;
	int _AnyOffset();
	std::string _PlaceComplaint();

	QWidget* fWidget;
	QWidget* fViewport;
	std::mt19937 fRandom;
};


#endif // RANDOM_USER_H
