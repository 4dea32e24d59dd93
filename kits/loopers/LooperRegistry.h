/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef LOOPER_REGISTRY_H
#define LOOPER_REGISTRY_H


#include <map>
#include <mutex>
#include <unordered_map>
#include <vector>

#include <LooperRecord.h>


class BHandler;


/*!	Every living handler and looper, by address and by token. Posting and locking ask here before
	they touch an object.
	For any thread. There is one, and it is never destroyed: threads may post while the process
	ends.
*/
class LooperRegistry {
public:
	static LooperRegistry* Default();

	void AddHandler(BHandler* handler);
	void RemoveHandler(BHandler* handler);
	void SetLooper(const BHandler* handler, const LooperRecordRef& looper);

	LooperRecordRef AddLooper(BLooper* looper);

	LooperRecordRef Find(const BHandler* handler, int32* _handlerToken) const;
	LooperRecordRef Find(const BLooper* looper) const;
	LooperRecordRef FindByToken(int32 token) const;
	BHandler* HandlerByToken(int32 token) const;

	void GetLoopers(std::vector<LooperRecordRef>& _loopers) const;

private:
	struct Entry {
		int32 token;
		// Of a looper its own, of a handler that of the looper to which it belongs.
		LooperRecordRef looper;
	};

	LooperRegistry();
	~LooperRegistry() = delete;

	mutable std::mutex fMutex;
	std::unordered_map<const BHandler*, Entry> fHandlers;
	std::unordered_map<int32, BHandler*> fHandlersByToken;
	// In the order of their creation.
	std::map<int32, LooperRecordRef> fLoopers;
	int32 fLastToken;
};


#endif // LOOPER_REGISTRY_H
