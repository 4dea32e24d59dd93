/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>


extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);


/*!	Feeds every file of the folder that the first argument names to a fuzz function, which ends the
	process when it finds something. An empty folder is an error.
*/
int
main(int argc, char** argv)
{
	if (argc != 2) {
		fprintf(stderr, "usage: %s <folder>\n", argv[0]);
		return 2;
	}
	int count = 0;
	for (const auto& entry : std::filesystem::directory_iterator(argv[1])) {
		printf("%s\n", entry.path().c_str());
		fflush(stdout);
		std::ifstream file(entry.path(), std::ios::binary);
		std::vector<char> bytes((std::istreambuf_iterator<char>(file)), {});
		LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
		count++;
	}
	printf("%d inputs\n", count);
	return count > 0 ? 0 : 1;
}
