// Progress as one line of the terminal, drawn anew in place. Where there is no terminal it stays silent, but
// the interrupt key cancels all the same.
#include "console_progress.h"

#include "host.h"
#include "report.h"

#include <algorithm>
#include <memory>
#include <string>

namespace cli {

using tidewell::ProgressDialog;

namespace {

constexpr int64_t kSecond = 10'000'000;          // in the clock's 100 ns
constexpr int64_t kShowAfter = kSecond;          // as long as the window waits
constexpr int64_t kRedrawEvery = kSecond / 5;    // often enough to look alive
constexpr int64_t kEstimateEvery = 2 * kSecond;  // as the window does
constexpr size_t kBarWidth = 24;                 // characters
constexpr size_t kNameWidth = 24;
constexpr int kTemplateCapacity = 128;

struct Line {
    std::string title;
    std::string remaining;
    int64_t created = 0;
    int64_t drawn = 0;
    int64_t estimated = 0;
    bool visible = isTerminal(Stream::errors);
    bool due = false;     // its first second has passed
    size_t onScreen = 0;  // characters of the line that the terminal shows now
};

// The command shows one progress at a time.
std::unique_ptr<Line> line;

// Cuts a name without leaving half of a UTF-8 character.
std::string shortened(const std::string& name) {
    if (name.size() <= kNameWidth) return name;
    size_t length = kNameWidth - 3;
    while (length > 0 && (static_cast<unsigned char>(name[length]) & 0xC0) == 0x80)
        --length;
    return name.substr(0, length) + "...";
}

void erase() {
    if (line->onScreen == 0) return;
    print(Stream::errors, '\r' + std::string(line->onScreen, ' ') + '\r');
    line->onScreen = 0;
}

// By the amounts themselves: the bar's 16 bits are too few for what a terminal can tell of gigabytes.
void draw(const ProgressDialog& progress, int64_t now) {
    const double part =
        progress.total > 0 ? static_cast<double>(progress.done) / static_cast<double>(progress.total) : 0;
    const auto filled = static_cast<size_t>(part * static_cast<double>(kBarWidth));
    std::string text = shortened(shownOn(Stream::errors, line->title)) + "  [" + std::string(filled, '#') +
                       std::string(kBarWidth - filled, '-') + "] " +
                       std::to_string(static_cast<int>(100 * part)) + "%  " + line->remaining;
    text.resize(std::min<size_t>(text.size(), terminalWidth() - 1));
    const size_t rest = line->onScreen > text.size() ? line->onScreen - text.size() : 0;
    print(Stream::errors, '\r' + text + std::string(rest, ' '));
    line->onScreen = text.size() + rest;
    line->drawn = now;
}

void estimate(const ProgressDialog& progress, int64_t now) {
    line->estimated = now;
    const tidewell::TimeRemaining remaining = tidewell::ProgressTimeRemaining(progress);
    char text[kTemplateCapacity];
    if (remaining.stringId == 0 || LoadStringA(progress.instance, remaining.stringId, text, sizeof text) == 0)
        return;
    std::string shown = text;
    if (const size_t number = shown.find("%d"); number != std::string::npos)
        shown.replace(number, 2, std::to_string(remaining.number));
    line->remaining = shown;
}

BOOL create(ProgressDialog&, const char*, HWND) {
    line = std::make_unique<Line>();
    line->created = tidewell::SystemTime100ns();
    return TRUE;
}

void destroy(ProgressDialog&) {
    erase();
    line.reset();
}

// A terminal has no icon.
LRESULT setIcon(ProgressDialog&, HICON) {
    return 0;
}

void setText(ProgressDialog&, const char* line1, const char*) {
    if (line1 != nullptr) line->title = line1;
}

void setRange(ProgressDialog&, uint16_t) {}

void setPosition(ProgressDialog&, uint16_t) {}

// What is said next takes the line.
void showNow(ProgressDialog&) {
    erase();
}

void serve(ProgressDialog& progress) {
    if (interrupted()) progress.cancelled = 1;
    if (!line->visible) return;
    const int64_t now = tidewell::SystemTime100ns();
    if (now - line->created >= kShowAfter) line->due = true;
    if (now - line->estimated >= kEstimateEvery) estimate(progress, now);
    if (line->due && progress.pauses == 0 && now - line->drawn >= kRedrawEvery) draw(progress, now);
}

}  // namespace

const tidewell::ProgressDisplay consoleProgress = {create,   destroy,     setIcon, setText,
                                                   setRange, setPosition, showNow, serve};

}  // namespace cli
