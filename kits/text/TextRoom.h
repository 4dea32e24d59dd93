/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TEXT_ROOM_H
#define TEXT_ROOM_H


#include <algorithm>
#include <cstdlib>
#include <new>


/*!	Has the parts of a text grow only where there is memory for it. What a text asks for at once may
	be as large as the text: where that is refused, others go on, who could not go on without
	memory, so some is left to them. A text that could not grow still has room for some lines, which
	may tell of the shortage. Belongs to one thread.
*/
class TextRoom {
public:
	// In bytes.
	static const size_t kSpare = 32 * 1024 * 1024;

	/*!	\param isFull Whether the text could not grow once. */
	explicit TextRoom(bool isFull)
		: fIsFull(isFull)
	{
	}

	/*!	Twice as much as there is, as usual, or, where that cannot be had, hardly more than needed.
		\return \c false where there is no room for \a added more elements; nothing has changed then.
	*/
	template<class Container>
	bool Make(Container* container, size_t added) const
	{
		const size_t capacity = container->capacity();
		const size_t last = std::clamp(capacity / 64, kFewestLast, kMostLast);
		const size_t size = container->size() + added + last;
		return size <= capacity || _Reserve(container, std::max(size, 2 * capacity))
			|| _Reserve(container, size + size / 16) || (fIsFull && size - last <= capacity);
	}

private:
	// How much is kept for the last lines, in elements.
	static constexpr size_t kFewestLast = 128;
	static constexpr size_t kMostLast = 65536;

	template<class Container>
	static bool _Reserve(Container* container, size_t count)
	{
		// Not touched, this costs a few microseconds.
		void* volatile block = malloc(count * sizeof(typename Container::value_type) + kSpare);
		if (block == NULL)
			return false;
		free(block);
		try {
			container->reserve(count);
		} catch (const std::bad_alloc&) {
			return false;
		}
		return true;
	}

	const bool fIsFull;
};


#endif // TEXT_ROOM_H
