/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef LOOPER_REGISTRY_H
#define LOOPER_REGISTRY_H


#include <mutex>
#include <unordered_map>
#include <vector>

#include <LooperRecord.h>


/*!	Every living handler and looper, by address and by token. Posting and locking ask here before they touch an object.
	For any thread. There is one, and it is never destroyed: threads may post while the process ends.
*/
class LooperRegistry {
public:
	static LooperRegistry* Default();

	void AddHandler(const BHandler* handler);
	void RemoveHandler(const BHandler* handler);
	void SetHandlerLooper(const BHandler* handler, const BLooper* looper);

	LooperRecordRef AddLooper(BLooper* looper);
	void RemoveLooper(const BLooper* looper);

	// Empty, 0 and NULL for what is gone.
	LooperRecordRef Find(const BLooper* looper) const;
	LooperRecordRef FindByToken(int32 token) const;
	LooperRecordRef FindByHandler(const BHandler* handler, int32* _handlerToken) const;
	BHandler* HandlerByToken(int32 token) const;

	// In the order of their creation.
	void GetLoopers(std::vector<LooperRecordRef>& _loopers) const;

private:
	LooperRegistry();
	~LooperRegistry() = delete;

	struct Entry {
		int32 token;
		LooperRecordRef looper;
	};

	int32 _NextToken();

	mutable std::mutex fMutex;
	std::unordered_map<const BHandler*, Entry> fHandlers;
	std::unordered_map<int32, BHandler*> fHandlersByToken;
	std::unordered_map<int32, LooperRecordRef> fLoopersByToken;
	int32 fLastToken;
};


#endif // LOOPER_REGISTRY_H
