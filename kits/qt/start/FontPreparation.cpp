/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <FontPreparation.h>

#include <clocale>
#include <cstdlib>
#include <string>

#include <fontconfig/fontconfig.h>
#include <QCoreApplication>

#include <OS.h>


// Qt takes it out of the environment when it has read it.
static const char* const kStartupVariable = "DESKTOP_STARTUP_ID";

static thread_id sThread = -1;


static status_t
look_up_fonts(void* /*data*/)
{
	// QApplication sets the process' locale meanwhile.
	const locale_t locale = newlocale(LC_ALL_MASK, "C", NULL);
	if (locale == NULL)
		return B_NO_MEMORY;
	const locale_t before = uselocale(locale);
	const bool found = FcInit() == FcTrue;
	uselocale(before);
	freelocale(locale);
	return found ? B_OK : B_ERROR;
}


/*!	What follows a variable that is taken out moves up, and is missed by who reads it just then. */
static void
move_to_end_of_environment(const char* name)
{
	const char* value = getenv(name);
	if (value == NULL)
		return;

	const std::string copy = value;
	unsetenv(name);
	setenv(name, copy.c_str(), 1);
}


static void
wait_for_fonts()
{
	wait_for_thread(sThread, NULL);
}

void
prepare_fonts()
{
	move_to_end_of_environment(kStartupVariable);
	sThread = spawn_thread(look_up_fonts, "fonts", B_NORMAL_PRIORITY, NULL);
	if (resume_thread(sThread) == B_OK)
		qAddPreRoutine(wait_for_fonts);
}
