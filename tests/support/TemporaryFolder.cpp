/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "TemporaryFolder.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>


TemporaryFolder::TemporaryFolder()
{
	char path[] = "/tmp/palimbra-test-XXXXXX";
	if (mkdtemp(path) == NULL)
		abort();
	fPath = path;
}


TemporaryFolder::~TemporaryFolder()
{
	std::error_code error;
	std::filesystem::remove_all(fPath, error);
}


void
TemporaryFolder::AddFile(const std::string& name, const std::string& content) const
{
	std::ofstream(PathOf(name), std::ios::binary) << content;
}


void
TemporaryFolder::AddFolder(const std::string& name) const
{
	std::filesystem::create_directory(PathOf(name));
}


void
TemporaryFolder::AddLink(const std::string& name, const std::string& target) const
{
	std::filesystem::create_symlink(target, PathOf(name));
}
