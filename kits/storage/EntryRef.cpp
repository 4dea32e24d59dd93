/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Entry.h>

#include <cstdlib>
#include <cstring>


namespace {


char*
copy_of(const char* text)
{
	return text != NULL ? strdup(text) : NULL;
}


bool
is_same(const char* a, const char* b)
{
	if (a == NULL || b == NULL)
		return a == b;

	return strcmp(a, b) == 0;
}


} // namespace


entry_ref::entry_ref()
	: device(dev_t(-1)),
	  directory(ino_t(-1)),
	  name(NULL),
	  fDirectoryPath(NULL)
{
}


entry_ref::entry_ref(const entry_ref& other)
	: device(other.device),
	  directory(other.directory),
	  name(copy_of(other.name)),
	  fDirectoryPath(copy_of(other.fDirectoryPath))
{
}


entry_ref::~entry_ref()
{
	free(name);
	free(fDirectoryPath);
}


entry_ref&
entry_ref::operator=(const entry_ref& other)
{
	if (this == &other)
		return *this;

	device = other.device;
	directory = other.directory;
	set_name(other.name);
	free(fDirectoryPath);
	fDirectoryPath = copy_of(other.fDirectoryPath);
	return *this;
}


bool
entry_ref::operator==(const entry_ref& other) const
{
	return device == other.device && directory == other.directory && is_same(name, other.name);
}


bool
entry_ref::operator!=(const entry_ref& other) const
{
	return !(*this == other);
}


/*!	Takes a copy; NULL takes the name away. */
status_t
entry_ref::set_name(const char* newName)
{
	char* copy = copy_of(newName);
	if (newName != NULL && copy == NULL)
		return B_NO_MEMORY;

	free(name);
	name = copy;
	return B_OK;
}
