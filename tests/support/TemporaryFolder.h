/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TEMPORARY_FOLDER_H
#define TEMPORARY_FOLDER_H


#include <string>


/*!	A folder of the test's own, which is gone with everything in it when the object is. */
class TemporaryFolder {
public:
	TemporaryFolder();
	TemporaryFolder(const TemporaryFolder&) = delete;
	~TemporaryFolder();

	TemporaryFolder& operator=(const TemporaryFolder&) = delete;

	const std::string& Path() const { return fPath; }
	std::string PathOf(const std::string& name) const { return fPath + '/' + name; }

	void AddFile(const std::string& name, const std::string& content) const;
	void AddFolder(const std::string& name) const;
	void AddLink(const std::string& name, const std::string& target) const;

private:
	std::string fPath;
};


#endif // TEMPORARY_FOLDER_H
