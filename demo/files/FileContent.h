/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef DEMO_FILE_CONTENT_H
#define DEMO_FILE_CONTENT_H


#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>


namespace demo {


/*!	The bytes of a fork of a file, wherever they come from. Never changes once it is shared, so that
	a download goes on undisturbed when the file is replaced.
*/
class FileContent {
public:
	explicit FileContent(uint64_t size)
		: fSize(size)
	{
	}
	virtual ~FileContent() = default;

	FileContent(const FileContent&) = delete;
	FileContent& operator=(const FileContent&) = delete;

	uint64_t Size() const { return fSize; }
	// Reads that many bytes, all of which must lie within the size. \return \c false on an error.
	virtual bool Read(uint64_t offset, uint8_t* buffer, size_t size) const = 0;

private:
	uint64_t fSize;
};


using ContentReference = std::shared_ptr<const FileContent>;


/*!	Bytes that are held in memory. */
class TextContent : public FileContent {
public:
	explicit TextContent(std::string bytes);

	bool Read(uint64_t offset, uint8_t* buffer, size_t size) const override;

private:
	std::string fBytes;
};


/*!	Bytes that are made when they are wanted: a pattern that differs from place to place. */
class PatternContent : public FileContent {
public:
	using FileContent::FileContent;

	static uint8_t ByteAt(uint64_t offset);
	bool Read(uint64_t offset, uint8_t* buffer, size_t size) const override;
};


/*!	Bytes in a file on disk that is open and belongs to the content. */
class DiskContent : public FileContent {
public:
	DiskContent(int file, uint64_t size);
	~DiskContent() override;

	static int CreateFile();
	bool Read(uint64_t offset, uint8_t* buffer, size_t size) const override;

private:
	int fFile;
};


/*!	Several contents read one after the other, from the start, once. */
class ContentSequence {
public:
	void Append(const ContentReference& content);
	uint64_t Size() const { return fSize; }

	void CutAt(uint64_t size);
	bool IsAtEnd() const { return fPosition == fEnd; }
	// \return The bytes read, fewer than asked for only at the end; -1 on an error.
	ssize_t Read(uint8_t* buffer, size_t size);

private:
	std::vector<ContentReference> fParts;
	size_t fPart = 0;
	uint64_t fPartOffset = 0;
	uint64_t fPosition = 0;
	uint64_t fSize = 0;
	uint64_t fEnd = 0;
};


} // namespace demo


#endif // DEMO_FILE_CONTENT_H
