#include "report.h"

#include "host.h"

namespace cli {

namespace {

// The system's text without the line break that ends it.
std::string systemText(tidewell::ErrorCode error) {
    char text[512];
    const DWORD length = FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                        error, 0, text, sizeof text, nullptr);
    std::string result(text, length);
    while (!result.empty() && (result.back() == '\n' || result.back() == '\r' || result.back() == ' '))
        result.pop_back();
    return result.empty() ? "The system has no text for this error." : result;
}

}  // namespace

void reportFailure(const std::string& file, const Failure& failure) {
    reportNote(file + ": error " + std::to_string(failure.error) + ": " +
               (failure.text.empty() ? systemText(failure.error) : failure.text));
}

void reportNote(const std::string& text) {
    print(Stream::errors, "tidewell: " + text + "\n");
}

}  // namespace cli
