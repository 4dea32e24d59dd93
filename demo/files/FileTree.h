/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef DEMO_FILE_TREE_H
#define DEMO_FILE_TREE_H


#include "FileContent.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>


namespace demo {


/*!	What goes wrong with a file on purpose. */
enum class Trouble { kNone, kMissing, kNoReference, kHangsUp, kSilent, kCutShort };


/*!	What a download needs to know of a file. */
struct FileRecord {
	// Bytes, in whatever encoding; as they travel.
	std::string name;
	// Four characters each.
	std::string type;
	std::string creator;
	std::string comment;
	ContentReference data;
	// NULL for a file without one.
	ContentReference resource;
	Trouble trouble = Trouble::kNone;
	// Only keepers may download it, or look into it.
	bool isLocked = false;
};


/*!	A file or a folder on the server. A folder owns what it holds; its order is the listing's.
	Belongs to the event loop's thread.
*/
class FileNode {
public:
	static std::unique_ptr<FileNode> Folder(const std::string& name);
	static std::unique_ptr<FileNode> File(FileRecord record);
	// Something in a listing that is no proper entry.
	static std::unique_ptr<FileNode> Raw(const std::string& entry);

	const FileRecord& Record() const { return fRecord; }
	bool IsFolder() const { return fIsFolder; }
	bool IsUpload() const { return fIsUpload; }
	void SetLocked() { fRecord.isLocked = true; }
	void SetUpload() { fIsUpload = true; }

	FileNode* Add(std::unique_ptr<FileNode> child);
	void Remove(const FileNode* child);
	FileNode* Find(const std::string& name) const;
	const std::vector<std::unique_ptr<FileNode>>& Children() const { return fChildren; }

	std::string Entry() const;

private:
	FileNode() = default;

	FileRecord fRecord;
	std::string fRawEntry;
	bool fIsFolder = false;
	bool fIsUpload = false;
	std::vector<std::unique_ptr<FileNode>> fChildren;
};


/*!	All that the server offers, and what it has been given. */
class FileTree {
public:
	using Path = std::vector<std::string>;

	static constexpr size_t kMaxUploads = 256;
	// What all uploads together may take, in bytes.
	static constexpr uint64_t kMaxUploaded = static_cast<uint64_t>(6) << 30;

	FileTree();

	FileNode& Root() { return *fRoot; }
	FileNode* FindFolder(const Path& path);
	static bool ParsePath(const std::string& value, Path* _path);

	bool HasRoomFor(uint64_t size) const;
	bool AddUpload(const Path& folder, FileRecord file);

private:
	std::unique_ptr<FileNode> fRoot;
	size_t fUploads = 0;
	uint64_t fUploaded = 0;
};


} // namespace demo


#endif // DEMO_FILE_TREE_H
