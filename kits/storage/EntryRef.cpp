/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Entry.h>

#include <cstdlib>
#include <cstring>


static char*
copy_of(const char* text)
{
	return text != NULL ? strdup(text) : NULL;
}


entry_ref::entry_ref()
	: device(static_cast<dev_t>(-1)),
	  directory(static_cast<ino_t>(-1)),
	  name(NULL),
	  fDirectoryPath(NULL)
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
