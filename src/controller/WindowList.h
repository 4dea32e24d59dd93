/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef WINDOW_LIST_H
#define WINDOW_LIST_H


#include <List.h>
#include <Window.h>


/*!	The windows of one kind that the controller has opened, in that order. Lives in the main
	window's thread. Borrows the windows, which delete themselves: one that has closed stays in the
	list until it is removed, and Lock() on it fails.
*/
template<class Kind>
class WindowList {
public:
	WindowList()
		: fWindows(kBlockSize)
	{
	}

	void Add(Kind* window) { fWindows.AddItem(window); }
	void Remove(void* window) { fWindows.RemoveItem(window); }
	void RemoveGone(const void* window);
	int32 CountOpen();

	// Hand one living window after the other to \a use, locked, until that is true for one, which
	// they return; NULL if it is for none.
	template<class Use>
	Kind* UseFirst(const Use& use) const;
	template<class Use>
	Kind* UseLast(const Use& use) const;

	void CloseAll();
	void QuitAll();

private:
	static const int32 kBlockSize = 20;

	BWindow* _WindowAt(int32 index) const { return static_cast<BWindow*>(fWindows.ItemAt(index)); }
	template<class Use>
	Kind* _Use(int32 index, const Use& use) const;

	BList fWindows;
};


/*!	Forgets a window that has closed. One that lives at its address has been opened since and stays.
*/
template<class Kind>
void
WindowList<Kind>::RemoveGone(const void* window)
{
	for (int32 i = fWindows.CountItems() - 1; i >= 0; i--) {
		BWindow* listed = _WindowAt(i);
		if (listed != window)
			continue;
		if (listed->Lock()) {
			listed->Unlock();
			continue;
		}
		fWindows.RemoveItem(i);
		return;
	}
}


/*!	Forgets the windows that have closed.
	\return How many are left.
*/
template<class Kind>
int32
WindowList<Kind>::CountOpen()
{
	for (int32 i = fWindows.CountItems() - 1; i >= 0; i--) {
		const auto isThere = [](const Kind*) {
			return true;
		};
		if (_Use(i, isThere) == NULL)
			fWindows.RemoveItem(i);
	}
	return fWindows.CountItems();
}


template<class Kind>
template<class Use>
Kind*
WindowList<Kind>::UseFirst(const Use& use) const
{
	Kind* found = NULL;
	for (int32 i = 0; found == NULL && i < fWindows.CountItems(); i++)
		found = _Use(i, use);
	return found;
}


template<class Kind>
template<class Use>
Kind*
WindowList<Kind>::UseLast(const Use& use) const
{
	Kind* found = NULL;
	for (int32 i = fWindows.CountItems() - 1; found == NULL && i >= 0; i--)
		found = _Use(i, use);
	return found;
}


/*!	Asks every window to quit and forgets it; what it posts when it does finds nothing. */
template<class Kind>
void
WindowList<Kind>::CloseAll()
{
	for (int32 i = fWindows.CountItems() - 1; i >= 0; i--) {
		_Use(i, [](Kind* window) {
			window->PostMessage(B_QUIT_REQUESTED);
			return true;
		});
	}
	fWindows.MakeEmpty();
}


/*!	Ends every window without asking it. */
template<class Kind>
void
WindowList<Kind>::QuitAll()
{
	for (int32 i = fWindows.CountItems() - 1; i >= 0; i--) {
		BWindow* listed = _WindowAt(i);
		if (!listed->Lock())
			continue;
		if (dynamic_cast<Kind*>(listed) != NULL)
			listed->Quit();
		else
			listed->Unlock();
	}
	fWindows.MakeEmpty();
}


/*!	Where a closed window was there may be one of another kind by now. */
template<class Kind>
template<class Use>
Kind*
WindowList<Kind>::_Use(int32 index, const Use& use) const
{
	BWindow* listed = _WindowAt(index);
	if (!listed->Lock())
		return NULL;
	Kind* window = dynamic_cast<Kind*>(listed);
	const bool isUsed = window != NULL && use(window);
	listed->Unlock();
	return isUsed ? window : NULL;
}


#endif // WINDOW_LIST_H
