/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TEXT_CONTROL_PEER_H
#define TEXT_CONTROL_PEER_H


#include <ViewPeer.h>


class QLabel;
class QLineEdit;


/*!	A label, in a column as wide as the divider says, and a field beside it. */
class TextControlPeer : public ViewPeer {
public:
	TextControlPeer();

	// The field's widget is in the control's already.
	void SetField(QWidget* field);
	void SetLabel(const char* label);
	void SetEnabled(bool enabled);
	// In pixels. Without one the label is as wide as its text.
	void SetDivider(float width);
	float Divider() const;

	QWidget* FocusWidget() const override;
	QSize MaxSize() override;
	void FontChanged() override;
	void FlagsChanged() override;

private:
	void _PlaceLabel();

	QLabel* fLabel;
	QWidget* fField;
	float fDivider;
};


#endif // TEXT_CONTROL_PEER_H
