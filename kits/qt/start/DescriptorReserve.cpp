/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <DescriptorReserve.h>

#include <array>
#include <sys/eventfd.h>
#include <unistd.h>

#include <QEvent>
#include <QObject>


/*!	Lets go of its descriptors for as long as there are no others. */
class DescriptorReserve : public QObject {
public:
	explicit DescriptorReserve(QObject* application)
		: QObject(application)
	{
		_Fill();
		application->installEventFilter(this);
	}

	~DescriptorReserve() override { _Empty(); }

	bool eventFilter(QObject* /*object*/, QEvent* event) override
	{
		switch (event->type()) {
			case QEvent::Expose:
			case QEvent::Resize:
			case QEvent::UpdateRequest:
				// What was let go of before is no reason to take it again: others may need it still.
				_Fill();
				if (!_IsAnyLeft())
					_Empty();
				break;
			default:
				break;
		}
		return false;
	}

private:
	static int _Open() { return eventfd(0, EFD_CLOEXEC); }

	static bool _IsAnyLeft()
	{
		const int descriptor = _Open();
		if (descriptor >= 0)
			close(descriptor);
		return descriptor >= 0;
	}

	void _Fill()
	{
		for (int& descriptor : fDescriptors) {
			if (descriptor < 0)
				descriptor = _Open();
		}
	}

	void _Empty()
	{
		for (int& descriptor : fDescriptors) {
			if (descriptor >= 0)
				close(descriptor);
			descriptor = -1;
		}
	}

	std::array<int, 4> fDescriptors{-1, -1, -1, -1};
};


void
reserve_descriptors(QObject* application)
{
	new DescriptorReserve(application);
}
