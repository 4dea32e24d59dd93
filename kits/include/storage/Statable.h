/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef STATABLE_H
#define STATABLE_H


#include <sys/stat.h>

#include <SupportDefs.h>


/*!	What the file system knows about an entry or an open node. */
class BStatable {
public:
	virtual ~BStatable();

	virtual status_t GetStat(struct stat* _stat) const = 0;

	bool IsFile() const;
	bool IsDirectory() const;
	bool IsSymLink() const;

	status_t GetSize(off_t* _size) const;
};


#endif // STATABLE_H
