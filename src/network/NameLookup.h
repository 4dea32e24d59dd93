/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef NAME_LOOKUP_H
#define NAME_LOOKUP_H


#include <memory>
#include <netdb.h>

#include <SupportDefs.h>


/*!	Looks up the IPv4 addresses of one host. The system's resolver cannot be told to stop, so for a
	lookup that can be canceled it runs in a thread "HL:Resolve" that shares nothing but its own
	record: a lookup that is canceled ends at once and leaves that thread behind, which ends
	whenever the resolver does.
	Run() belongs to one thread and is called once, Cancel() to any.
*/
class NameLookup {
public:
	NameLookup(const char* host, uint32 port);
	NameLookup(const NameLookup&) = delete;
	~NameLookup();

	NameLookup& operator=(const NameLookup&) = delete;

	int Run(bool canBeCanceled);
	void Cancel();

	// The first address that was found, owned by the lookup; NULL before that and where there is
	// none.
	const addrinfo* Address() const { return fAddresses.get(); }

private:
	struct Record;

	bool _StartThread();
	static status_t _ThreadEntry(void* data);

	std::shared_ptr<Record> fRecord;
	std::unique_ptr<addrinfo, void (*)(addrinfo*)> fAddresses;
};


#endif // NAME_LOOKUP_H
