// How every fuzzer is run, unless its command line or ASAN_OPTIONS say otherwise: a run takes some tens of
// microseconds, most of which the tools would spend on themselves.
#include <cstddef>
#include <vector>

// One frame tells which line took memory; that of the last runs need not be held back.
extern "C" const char* __asan_default_options() {
    return "malloc_context_size=1:quarantine_size_mb=8:max_malloc_fill_size=64";
}

// To weigh the inputs by how rare what they reach is takes as long as the runs.
extern "C" int LLVMFuzzerInitialize(int* count, char*** arguments) {
    static char choice[] = "-entropic=0";
    static std::vector<char*> all(*arguments, *arguments + *count);
    all.insert(all.begin() + 1, choice);
    all.push_back(nullptr);
    *arguments = all.data();
    ++*count;
    return 0;
}
