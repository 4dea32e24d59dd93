/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ProgramFolder.h"

#include <fcntl.h>
#include <utility>
#include <vector>

#include <Application.h>
#include <Bitmap.h>
#include <Button.h>
#include <DataIO.h>
#include <Directory.h>
#include <Entry.h>
#include <File.h>
#include <Path.h>
#include <Roster.h>
#include <TranslationUtils.h>

#include "PictureSize.h"


static bool
may_be_icon(uint32 width, uint32 height)
{
	return static_cast<uint64>(width) * height <= kMaxIconPixels;
}


/*!	Whoever fills the folder may have put anything there: what is larger than an icon may be is not
	decoded. A kind of picture that is not known here is known by its size only then.
	\param path Raw bytes.
	\return Nothing for what is no icon.
*/
std::unique_ptr<BBitmap>
LoadIcon(const char* path)
{
	// A pipe would be waited for until somebody writes to it.
	BFile file(path, B_READ_ONLY | O_NONBLOCK);
	off_t size = 0;
	if (file.InitCheck() != B_OK || !file.IsFile() || file.GetSize(&size) != B_OK
		|| size > kMaxIconFile)
		return NULL;
	std::vector<uint8> bytes(static_cast<size_t>(size));
	const ssize_t count = file.Read(bytes.data(), bytes.size());
	if (count <= 0)
		return NULL;

	uint32 width;
	uint32 height;
	if (ReadPictureSize(bytes.data(), static_cast<size_t>(count), &width, &height)
		&& !may_be_icon(width, height))
		return NULL;
	BMemoryIO stream(static_cast<const void*>(bytes.data()), static_cast<size_t>(count));
	std::unique_ptr<BBitmap> bitmap(BTranslationUtils::GetBitmap(&stream));
	if (bitmap == NULL || !bitmap->IsValid())
		return NULL;
	const BRect bounds = bitmap->Bounds();
	const bool isIcon = may_be_icon(static_cast<uint32>(bounds.Width()) + 1,
		static_cast<uint32>(bounds.Height()) + 1);
	return isIcon ? std::move(bitmap) : NULL;
}


/*!	\param assetsPath The folder of the pictures, empty or \c NULL for none.
	\return Nothing where there is no such picture, or none that can be read.
*/
std::unique_ptr<BBitmap>
LoadPicture(const char* assetsPath, uint16 number)
{
	if (assetsPath == NULL || assetsPath[0] == '\0')
		return NULL;
	BString path;
	path.SetToFormat("%s/%u.png", assetsPath, number);
	return LoadIcon(path.String());
}


/*!	A button whose picture is missing stays as it is. */
void
ShowPicture(BButton* button, const char* assetsPath, Picture picture)
{
	const std::unique_ptr<BBitmap> bitmap = LoadPicture(assetsPath, picture);
	if (bitmap != NULL)
		button->SetIcon(bitmap.get(), 0);
}


// #pragma mark -


ProgramFolder::ProgramFolder()
{
	app_info info;
	if (be_app->GetAppInfo(&info) != B_OK)
		return;

	BPath root(&info.ref);
	if (root.GetParent(&root) != B_OK)
		return;
	fAppRootPath = root.Path();
	fAssetsPath = BPath(root.Path(), "assets").Path();
	fDownloadsPath = BPath(root.Path(), "Downloads").Path();
}


/*!	An error means that the folder exists already, or that the program may not write here. */
void
ProgramFolder::CreateDownloads() const
{
	if (!fDownloadsPath.IsEmpty())
		BDirectory().CreateDirectory(fDownloadsPath.String(), NULL);
}
