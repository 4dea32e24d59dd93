/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef BUTTON_PEER_H
#define BUTTON_PEER_H


#include <String.h>
#include <ViewPeer.h>


class BBitmap;
class BButton;
class QPushButton;


/*!	A QPushButton. Its label and its state reach it once per frame. */
class ButtonPeer : public ViewPeer {
public:
	ButtonPeer();

	void SetIcon(const BBitmap* icon);
	void SetDefault(bool isDefault);
	bool IsDefault() const;

	QSize MinSize() override;
	QSize MaxSize() override;
	QSize PreferredSize() override;
	void ToolTipChanged(const char* text) override;

protected:
	void Flush() override;

private:
	BButton* _Button() const;
	void _UpdateName();

	QPushButton* fButton;
	BString fToolTip;
};


#endif // BUTTON_PEER_H
