/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ProgramFolder.h"

#include <Application.h>
#include <Bitmap.h>
#include <Button.h>
#include <Directory.h>
#include <Entry.h>
#include <Path.h>
#include <Roster.h>
#include <TranslationUtils.h>


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
	return std::unique_ptr<BBitmap>(BTranslationUtils::GetBitmapFile(path.String()));
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
