/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef CARET_BLINK_H
#define CARET_BLINK_H


#include <QBasicTimer>
#include <QObject>


/*!	Has carets blink while somebody uses a field and for some seconds afterwards. Then they stand
	still, and a program at rest takes no processor time. Belongs to the application, and needs it.
	Main thread only.
*/
class CaretBlink : public QObject {
public:
	static CaretBlink* Default();

	// The user has typed or clicked: carets blink, until nobody has for some seconds.
	void GoOn();
	// In milliseconds, from the next GoOn() on.
	void SetRestAfter(int time) { fRestAfter = time; }

protected:
	void timerEvent(QTimerEvent* event) override;

private:
	explicit CaretBlink(QObject* application);

	QBasicTimer fTimer;
	int fRestAfter;
	// In milliseconds: what QStyleHints go back to, below 0 while carets blink.
	int fBlinkTime;
};


#endif // CARET_BLINK_H
