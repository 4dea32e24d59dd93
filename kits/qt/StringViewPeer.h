/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef STRING_VIEW_PEER_H
#define STRING_VIEW_PEER_H


#include <ViewPeer.h>


class BStringView;
class LabelWidget;


/*!	A label. Its text reaches the QLabel once per frame. */
class StringViewPeer : public ViewPeer {
public:
	StringViewPeer();

	void SetTruncation(uint32 mode);

	QSize MinSize() override;
	QSize MaxSize() override;
	QSize PreferredSize() override;
	Qt::Alignment Alignment() const override { return Qt::AlignLeft | Qt::AlignVCenter; }
	void ColorsChanged() override;

protected:
	void Flush() override;

private:
	LabelWidget* fLabel;
	uint32 fTruncation;
};


#endif // STRING_VIEW_PEER_H
