/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef PROGRAM_FOLDER_H
#define PROGRAM_FOLDER_H


#include <memory>

#include <String.h>
#include <SupportDefs.h>


class BBitmap;
class BButton;


/*!	The pictures of the assets folder that the program itself shows, by their numbers. A user may
	have any of the folder's.
*/
enum Picture : uint16 {
	kDownloadPicture = 210,
	kUploadPicture = 211,
	kFilesPicture = 235,
	kChatPicture = 238,
	kUsersPicture = 242,
	kFolderPicture = 401,
	kStuffItPicture = 403,
	kImagePicture = 406,
	kDisconnectPicture = 412,
	kOptionsPicture = 419,
	kTrackerPicture = 431,
	kConnectPicture = 2000
};


// What an icon has at most: of pixels, whatever its shape, and of bytes in its file.
const uint64 kMaxIconPixels = 128 * 128;
const off_t kMaxIconFile = 64 * 1024;

std::unique_ptr<BBitmap> LoadIcon(const char* path);
std::unique_ptr<BBitmap> LoadPicture(const char* assetsPath, uint16 number);
void ShowPicture(BButton* button, const char* assetsPath, Picture picture);


/*!	The folder that the program itself lies in, and beside it the pictures and the downloads. It is
	looked up when this is made, on the main thread, and does not change. Every path is empty where
	the folder is unknown.
*/
class ProgramFolder {
public:
	ProgramFolder();

	const char* AppRootPath() const { return fAppRootPath.String(); }
	const char* AssetsPath() const { return fAssetsPath.String(); }
	const char* DownloadsPath() const { return fDownloadsPath.String(); }

	void CreateDownloads() const;

private:
	BString fAppRootPath;
	BString fAssetsPath;
	BString fDownloadsPath;
};


#endif // PROGRAM_FOLDER_H
