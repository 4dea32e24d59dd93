/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef STRING_VIEW_PEER_H
#define STRING_VIEW_PEER_H


#include <Alignment.h>
#include <ViewPeer.h>


class BStringView;
class LabelWidget;


/*!	A label of one line. Its text reaches the toolkit once per frame. */
class StringViewPeer : public ViewPeer {
public:
	StringViewPeer();

	void SetAlignment(alignment flag);
	alignment Alignment() const { return fAlignment; }
	void SetTruncation(uint32 mode);
	uint32 Truncation() const { return fTruncation; }

	QSize MinSize() override;
	QSize MaxSize() override;
	QSize PreferredSize() override;
	void ColorsChanged() override;

protected:
	void Flush() override;

private:
	LabelWidget* fLabel;
	alignment fAlignment;
	uint32 fTruncation;
};


#endif // STRING_VIEW_PEER_H
