#include "report.h"

namespace cli {

namespace {

constexpr UINT kUtf8 = 65001;

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

std::string withoutControls(const std::string& text) {
    std::string shown = text;
    for (size_t i = 0; i < shown.size(); ++i) {
        const auto c = static_cast<unsigned char>(shown[i]);
        // In UTF-8 a second set of them takes two bytes.
        const bool second = c == 0xC2 && i + 1 < shown.size() && GetACP() == kUtf8 &&
                            static_cast<unsigned char>(shown[i + 1]) < 0xA0;
        if (c < ' ' || c == 0x7F || second) shown[i] = '?';
        if (second) shown.erase(i + 1, 1);
    }
    return shown;
}

std::string shownOn(Stream stream, const std::string& name) {
    return isTerminal(stream) ? withoutControls(name) : name;
}

int reportFailure(const std::string& file, const Failure& failure) {
    reportNote(failure.error == ERROR_CANCELLED
                   ? "cancelled"
                   : shownOn(Stream::errors, file) + ": error " + std::to_string(failure.error) + ": " +
                         (failure.text.empty() ? systemText(failure.error) : failure.text));
    return kSomethingFailed;
}

void reportNote(const std::string& text) {
    print(Stream::errors, "tidewell: " + text + "\n");
}

bool printOutput(const std::string& text) {
    static bool told = false;
    if (print(Stream::output, text)) return true;
    if (!told) reportNote(interrupted() ? "cancelled" : "the standard output takes no more");
    told = true;
    return false;
}

}  // namespace cli
