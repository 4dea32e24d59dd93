/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef FILE_ITEM_H
#define FILE_ITEM_H


#include <ListItem.h>
#include <String.h>

#include "ToolTipRow.h"


class BBitmap;
class RowPainter;


/*!	A row of a folder on the server: a picture for its kind, the name and on the right the size.
	Lives in the thread of its window, which owns it; the pictures are borrowed, and any may be
	NULL.
*/
class FileItem : public BStringItem, public ToolTipRow {
public:
	FileItem(const char* name, const char* type, const char* creator, int32 size,
		BBitmap* folderIcon, BBitmap* stuffItIcon, BBitmap* imageIcon);
	~FileItem() override;

	const char* FileName() const { return Text(); }
	const char* FileType() const { return fType; }
	bool IsFolder() const;

	void DrawItem(BView* owner, BRect frame, bool complete = false) override;
	BString ToolTipText(float rowWidth) const override;

private:
	const BBitmap* _Icon() const;
	void _DrawSymbol(BView* owner, RowPainter* painter, float left) const;
	float _TextLeft() const;
	float _NameWidth(float rowWidth) const;
	BString _SizeText() const;

	// Four characters each, terminated.
	char fType[5];
	char fCreator[5];
	int32 fSize; // in bytes
	BBitmap* fFolderIcon;
	BBitmap* fStuffItIcon;
	BBitmap* fImageIcon;
};


#endif // FILE_ITEM_H
