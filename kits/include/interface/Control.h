/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef CONTROL_H
#define CONTROL_H


#include <Invoker.h>
#include <String.h>
#include <View.h>


/*!	A view that the user operates, which sends its message then: to its window unless it was given
	another target.
	The message leaves with "when" (int64, microseconds), "source" (pointer to the control),
	"be:sender" (messenger of the control) and "be:value" (int32).
*/
class BControl : public BView, public BInvoker {
public:
	void AttachedToWindow() override;

	const char* Label() const { return fLabel.String(); }
	virtual void SetEnabled(bool enabled);
	bool IsEnabled() const { return fEnabled; }

	status_t Invoke(BMessage* message = NULL) override;

protected:
	// For the kits' own controls; see BView.
	BControl(ViewPeer* peer, const char* name, const char* label, BMessage* message, uint32 flags);

private:
	BString fLabel;
	bool fEnabled;
};


#endif // CONTROL_H
