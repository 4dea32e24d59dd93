/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "FileTree.h"

#include <algorithm>
#include <utility>

#include "ByteOrder.h"
#include "Stock.h"


namespace demo {


static const char* const kFolderType = "fldr";
static const char* const kFolderCreator = "n/a ";


std::unique_ptr<FileNode>
FileNode::Folder(const std::string& name)
{
	std::unique_ptr<FileNode> node(new FileNode);
	node->fRecord.name = name;
	node->fRecord.type = kFolderType;
	node->fRecord.creator = kFolderCreator;
	node->fIsFolder = true;
	return node;
}


std::unique_ptr<FileNode>
FileNode::File(FileRecord record)
{
	std::unique_ptr<FileNode> node(new FileNode);
	node->fRecord = std::move(record);
	return node;
}


std::unique_ptr<FileNode>
FileNode::Raw(const std::string& entry)
{
	std::unique_ptr<FileNode> node(new FileNode);
	node->fRawEntry = entry;
	return node;
}


/*!	\return The child, which belongs to the folder from then on. */
FileNode*
FileNode::Add(std::unique_ptr<FileNode> child)
{
	fChildren.push_back(std::move(child));
	return fChildren.back().get();
}


void
FileNode::Remove(const FileNode* child)
{
	auto isChild = [child](const std::unique_ptr<FileNode>& entry) {
		return entry.get() == child;
	};
	fChildren.erase(std::remove_if(fChildren.begin(), fChildren.end(), isChild), fChildren.end());
}


/*!	The child with exactly that name; NULL if there is none. */
FileNode*
FileNode::Find(const std::string& name) const
{
	for (const auto& child : fChildren) {
		if (child->fRawEntry.empty() && child->fRecord.name == name)
			return child.get();
	}
	return NULL;
}


/*!	The node's record in the listing of its folder. */
std::string
FileNode::Entry() const
{
	if (!fRawEntry.empty())
		return fRawEntry;

	uint64_t size = fIsFolder ? fChildren.size() : fRecord.data->Size();
	std::string entry = fRecord.type + fRecord.creator;
	append_32(entry, static_cast<uint32_t>(size));
	append_32(entry, 0);
	// The script of the name, then its length.
	append_16(entry, 0);
	append_16(entry, static_cast<uint16_t>(fRecord.name.size()));
	return entry + fRecord.name;
}


// #pragma mark -


FileTree::FileTree()
	: fRoot(FileNode::Folder(""))
{
	fill_stock(*fRoot);
}


/*!	The folder that the names lead to from the root; NULL if one of them does not exist. */
FileNode*
FileTree::FindFolder(const Path& path)
{
	FileNode* folder = fRoot.get();
	for (const std::string& name : path) {
		folder = folder->Find(name);
		if (folder == NULL || !folder->IsFolder())
			return NULL;
	}
	return folder;
}


/*!	Takes apart a path as it travels: a count, then for each name two bytes of nothing, its length
	and its bytes. An empty value is the root.
	\return \c false when the value does not hold what it announces.
*/
bool
FileTree::ParsePath(const std::string& value, Path* _path)
{
	_path->clear();
	if (value.empty())
		return true;
	if (value.size() < 2)
		return false;

	const auto* bytes = reinterpret_cast<const uint8_t*>(value.data());
	uint16_t count = read_16(bytes);
	size_t offset = 2;
	for (uint16_t i = 0; i < count; i++) {
		if (value.size() - offset < 3)
			return false;
		size_t length = bytes[offset + 2];
		offset += 3;
		if (value.size() - offset < length)
			return false;
		_path->push_back(value.substr(offset, length));
		offset += length;
	}
	return true;
}


bool
FileTree::HasRoomFor(uint64_t size) const
{
	return fUploads < kMaxUploads && size <= kMaxUploaded - fUploaded;
}


/*!	Puts a file into a folder, in place of an earlier upload of that name.
	\return \c false when there is no such folder, no room, or a file that is not to be replaced.
*/
bool
FileTree::AddUpload(const Path& folder, FileRecord file)
{
	FileNode* parent = FindFolder(folder);
	if (parent == NULL)
		return false;
	FileNode* existing = parent->Find(file.name);
	if (existing != NULL && !existing->IsUpload())
		return false;

	if (existing != NULL) {
		fUploads--;
		fUploaded -= existing->Record().data->Size();
		parent->Remove(existing);
	}
	if (!HasRoomFor(file.data->Size()))
		return false;
	fUploads++;
	fUploaded += file.data->Size();
	parent->Add(FileNode::File(std::move(file)))->SetUpload();
	return true;
}


} // namespace demo
