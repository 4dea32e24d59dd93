/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef NODE_H
#define NODE_H


#include <Statable.h>
#include <StorageDefs.h>


/*!	An open file or folder, for as long as the object lives. It belongs to one thread at a time. */
class BNode : public BStatable {
public:
	BNode();
	BNode(const BNode&) = delete;
	~BNode() override;

	BNode& operator=(const BNode&) = delete;

	status_t InitCheck() const { return fStatus; }
	status_t GetStat(struct stat* _stat) const override;

protected:
	status_t _Open(const char* path, int flags);
	status_t _SetError(status_t error);
	int _Descriptor() const { return fDescriptor; }

private:
	int fDescriptor;
	status_t fStatus;
};


#endif // NODE_H
