/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef PARTNER_H
#define PARTNER_H


#include <cstdint>
#include <string>
#include <sys/types.h>
#include <vector>


/*!	The other end of a measurement, a process of its own (bench/partner), whose CPU is not counted.
	It lies beside the program, listens on 127.0.0.1, and ends with this object. A partner that
	cannot be started ends the program.
*/
class Partner {
public:
	explicit Partner(const std::vector<std::string>& arguments);
	Partner(const Partner&) = delete;
	~Partner();

	Partner& operator=(const Partner&) = delete;

	uint16_t Port() const { return fPort; }
	// For the partners that wait for a word before they send.
	void Go();

private:
	pid_t fProcess;
	int fInput;
	uint16_t fPort;
};


#endif // PARTNER_H
