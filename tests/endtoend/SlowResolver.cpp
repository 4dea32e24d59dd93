/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */


#include <cstdlib>
#include <cstring>
#include <string>

#include <dlfcn.h>
#include <fcntl.h>
#include <netdb.h>
#include <unistd.h>


/*!	Preloaded into the client: the name "slow.test" takes as long to resolve as the test wants, then
	is 127.0.0.1.
	The folder named by PALIMBRA_RESOLVER holds a pipe "gate". A file "asked" appears in the folder
	when the name has been asked for; the answer comes when the test opens the gate for writing. All
	other names go to the system's resolver.
*/
extern "C" int
getaddrinfo(const char* node, const char* service, const struct addrinfo* hints,
	struct addrinfo** _result)
{
	using Resolver = int (*)(const char*, const char*, const struct addrinfo*, struct addrinfo**);
	Resolver systemResolver = reinterpret_cast<Resolver>(dlsym(RTLD_NEXT, "getaddrinfo"));

	const char* folder = getenv("PALIMBRA_RESOLVER");
	if (folder == NULL || node == NULL || strcmp(node, "slow.test") != 0)
		return systemResolver(node, service, hints, _result);

	close(open((std::string(folder) + "/asked").c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600));
	// Opening a pipe for reading waits for somebody to open it for writing.
	close(open((std::string(folder) + "/gate").c_str(), O_RDONLY | O_CLOEXEC));
	return systemResolver("127.0.0.1", service, hints, _result);
}
