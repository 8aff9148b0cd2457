// Several threads of one program work on the PC. On Windows the C++ library of the tests has no threads.
#include "support/test_pc.h"

#include <doctest/doctest.h>

#include <atomic>
#include <thread>

TEST_CASE("Threads open, write, read and close at a time") {
    TestPc pc;
    std::atomic<int> failures = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([i, &failures] {
            for (int round = 0; round < 200; ++round) {
                const std::string path = std::string(1, "FNMN"[i]) + ":\\" + std::to_string(i);
                const Bytes bytes = patternOf(100, static_cast<unsigned>(round));
                writeFile(path, bytes);
                void* const memory = VirtualAlloc(nullptr, 100, MEM_COMMIT, PAGE_READWRITE);
                const bool same = readFile(path) == bytes && VirtualFree(memory, 0, MEM_RELEASE);
                const bool gone = DeleteFileA(path.c_str()) && !exists(path);
                if (!same || !gone || GetLastError() != ERROR_FILE_NOT_FOUND) ++failures;
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    CHECK(failures == 0);
    CHECK(pc.nothingHeld());
    CHECK(pc.journal().count("DeleteFileA") == 4 * 200);
}
