// Conversions of several files: their order, what is asked and told on the way, and how a batch ends.
#include "convert/conversion_batch.h"

#include "base/path.h"
#include "res/resource.h"
#include "support/archive_writer.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <functional>

using namespace tidewell;

namespace {

using Paths = std::vector<std::string>;

struct Batch {
    const char* command;
    void (*run)(const ConversionBatch& batch);
    Paths sources;
    Paths outputs;
    std::string folder;
};

MacFile fileOf(size_t number) {
    const auto seed = static_cast<unsigned>(number);
    return {.data = patternOf(100'000 * (number + 1), seed), .resource = patternOf(900 + number, seed)};
}

Bytes archiveOf(size_t number) {
    return macBinaryFile({.file = fileOf(number), .name = bytesOf("File " + std::to_string(number))});
}

const Batch kPack = {"pack",
                     PackFiles,
                     {"M:\\File 0", "M:\\File 1.c", "M:\\File 2.tar.gz"},
                     {"F:\\File 0.bin", "F:\\File 1.bin", "F:\\File 2.tar.bin"},
                     "F:\\"};
const Batch kExtract = {"extract",
                        ExtractFiles,
                        {"F:\\a.bin", "F:\\b.BIN", "F:\\c.bin"},
                        {"N:\\File 0", "N:\\File 1", "N:\\File 2"},
                        "N:\\"};

bool packs(const Batch& batch) {
    return batch.run == PackFiles;
}

void writeSources(const Batch& batch) {
    for (size_t i = 0; i < batch.sources.size(); ++i) {
        if (packs(batch))
            writeMacFile(batch.sources[i], fileOf(i));
        else
            writeFile(batch.sources[i], archiveOf(i));
    }
}

// Whether the output is the whole new file.
bool isWhole(const Batch& batch, size_t number) {
    const std::string& output = batch.outputs[number];
    if (!exists(output)) return false;
    if (!packs(batch)) return readMacFile(output) == keptOn('N', fileOf(number));
    const std::string name = FileNamePart(batch.sources[number].c_str());
    return readFile(output) == macBinaryFile({.file = fileOf(number), .name = bytesOf(name)});
}

// For each file: whole 'w', not there '-', anything else 'o'.
std::string outcome(const Batch& batch) {
    std::string text;
    for (size_t i = 0; i < batch.outputs.size(); ++i)
        text += isWhole(batch, i) ? 'w' : exists(batch.outputs[i]) ? 'o' : '-';
    return text;
}

void run(
    const Batch& batch, const char* title = "Working", const std::function<void()>& begin = [] {}) {
    PathList list;
    for (auto path = batch.sources.rbegin(); path != batch.sources.rend(); ++path)
        list.Add(path->c_str());
    begin();
    batch.run({nullptr, list, batch.folder.c_str(), {title, "Preparing", nullptr}});
    CHECK(scriptedUser.created == scriptedUser.destroyed);
}

std::string nameOf(const std::string& path) {
    return FileNamePart(path.c_str());
}

}  // namespace

TEST_CASE("A batch converts each file in its order, and its progress ends at the total") {
    for (const Batch& batch : {kPack, kExtract}) {
        TestPc pc;
        writeSources(batch);
        Paths lines;
        scriptedUser.onServe = [&] {
            if (lines.empty() || lines.back() != scriptedUser.line1) lines.push_back(scriptedUser.line1);
        };
        run(batch);
        CHECK(outcome(batch) == "www");
        CHECK(scriptedUser.asked == 0);
        Paths wanted = {"Preparing"};
        for (size_t i = 0; i < 3; ++i) {
            wanted.push_back(nameOf(batch.sources[i]));
            if (!packs(batch)) wanted.push_back("File " + std::to_string(i));
        }
        CHECK(lines == wanted);
        // The bar's range is set once: the total was right.
        CHECK(scriptedUser.ranges.size() == 1);
        CHECK(scriptedUser.positions.back() == scriptedUser.ranges[0]);
        CHECK(pc.nothingHeld());
    }
}

TEST_CASE("Without a window for the progress everything is done all the same") {
    for (const Batch& batch : {kPack, kExtract}) {
        for (const bool titled : {true, false}) {
            TestPc pc;
            writeSources(batch);
            scriptedUser.createError = titled ? ERROR_NOT_ENOUGH_MEMORY : 0;
            run(batch, titled ? "Working" : nullptr);
            CHECK(outcome(batch) == "www");
            CHECK(scriptedUser.created == 0);
        }
    }
}

TEST_CASE("Of old files the user keeps some or none; Yes to All asks no more; Cancel ends the batch") {
    struct Row {
        int answer;
        int asked;
        std::string outcome;
    };
    for (const Batch& batch : {kPack, kExtract}) {
        const Row rows[] = {
            {IDYES, 2, "www"}, {IDNO, 2, "woo"}, {IDYESTOALL, 1, "www"}, {IDCANCEL, 1, "woo"}};
        for (const Row& row : rows) {
            TestPc pc;
            writeSources(batch);
            for (const size_t old : {size_t{1}, size_t{2}})
                writeFile(batch.outputs[old], bytesOf("old"));
            scriptedUser.answer = row.answer;
            CAPTURE(batch.command);
            CAPTURE(row.answer);
            run(batch);
            CHECK(outcome(batch) == row.outcome);
            CHECK(scriptedUser.asked == row.asked);
            // The last file's question is of that file alone.
            CHECK(scriptedUser.several == (row.asked == 1));
            CHECK(scriptedUser.pausesAtQuestion == 1);
            CHECK(scriptedUser.failures.empty());
        }
    }
}

TEST_CASE("Where nobody answers the question, the file stays and the failure is told") {
    TestPc pc;
    writeSources(kPack);
    writeFile(kPack.outputs[0], bytesOf("old"));
    scriptedUser.answer = -1;
    scriptedUser.afterFailures = {IDOK};
    run(kPack);
    CHECK(outcome(kPack) == "oww");
    CHECK(scriptedUser.failures == Paths{"80 E0000018 31 File 0 F:\\ 1"});
}

TEST_CASE("A failure is told once, with the buttons that it can have, and the answer decides") {
    struct Row {
        ErrorCode error;
        std::vector<int> answers;
        size_t told;  // the answers are used up
        std::string outcome;
        const char* style;
    };
    const Row rows[] = {
        {ERROR_CRC, {IDOK}, 1, "w-w", "31"},
        {ERROR_CRC, {IDCANCEL}, 1, "w--", "31"},
        {ERROR_CRC, {-1}, 1, "w--", "31"},
        {ERROR_DISK_FULL, {IDRETRY}, 1, "www", "35"},
        {ERROR_HANDLE_DISK_FULL, {IDRETRY, IDRETRY}, 2, "www", "35"},
        {ERROR_NOT_READY, {IDCANCEL}, 1, "w--", "35"},
        {ERROR_WRITE_PROTECT, {IDRETRY}, 1, "www", "35"},
    };
    for (const Batch& batch : {kPack, kExtract}) {
        for (const Row& row : rows) {
            TestPc pc;
            writeSources(batch);
            scriptedUser.afterFailures = row.answers;
            scriptedUser.onFailure = [&] {
                if (scriptedUser.failures.size() == row.told) pc.faults().clear();
            };
            pc.faults().failAlways("WriteFile", batch.outputs[1], row.error);
            CAPTURE(batch.command);
            CAPTURE(row.error);
            run(batch);
            CHECK(outcome(batch) == row.outcome);
            const std::string told = std::to_string(row.error) +
                                     (packs(batch) ? " E0000018 " : " E0000007 ") + row.style + ' ' +
                                     nameOf(batch.sources[1]) + ' ' + batch.folder + " 1";
            CHECK(scriptedUser.failures == Paths(row.told, told));
            // What was tried twice counts once.
            CHECK(scriptedUser.ranges.size() == 1);
            CHECK(pc.nothingHeld());
        }
    }
}

TEST_CASE(
    "The last file's failure has one button, and a name that is too long is told and no other is taken") {
    TestPc pc;
    writeSources(kExtract);
    writeFile("F:\\c.bin", bytesOf("no archive"));
    run(kExtract);
    CHECK(outcome(kExtract) == "ww-");
    CHECK(scriptedUser.failures == Paths{"38 E0000007 30 c.bin N:\\ 1"});

    // A period and a backslash in a character are none.
    pc.setCodePage(932);
    writeMacFile("N:\\\x94\x5C.\x83\x5C", fileOf(0));
    run({"pack", PackFiles, {"N:\\\x94\x5C.\x83\x5C"}, {}, "F:\\"});
    CHECK(exists("F:\\\x94\x5C.bin"));
    pc.setCodePage(1252);

    // The longest output has one byte less than the buffer, and its NUL.
    for (const size_t length : {kPathCapacity - 5, kPathCapacity - 4}) {
        scriptedUser = {};
        const Batch batch = {"pack", PackFiles, {"M:\\a"}, {}, "F:\\" + std::string(length - 5, 'f')};
        run(batch);
        const bool fits = length == kPathCapacity - 5;
        CHECK(scriptedUser.failures.size() == 1);
        CHECK(scriptedUser.failures[0].starts_with(fits ? "87 " : "206 "));
    }
}

TEST_CASE(
    "A cancel ends the batch in silence at every chance: files before are whole, later ones not begun") {
    for (const Batch& batch : {kPack, kExtract}) {
        size_t whole = 0;
        bool heard = true;
        for (int n = 1; heard; ++n) {
            TestPc pc;
            writeSources(batch);
            scriptedUser.cancelAtServe = n;
            run(batch);
            CAPTURE(n);
            const std::string result = outcome(batch);
            heard = scriptedUser.serves >= n;
            if (!heard) CHECK(result == "www");
            CHECK(result.find('o') == std::string::npos);
            CHECK(std::is_sorted(result.rbegin(), result.rend()));
            // What is done does not go again.
            const auto done = static_cast<size_t>(std::count(result.begin(), result.end(), 'w'));
            CHECK(done >= whole);
            whole = done;
            CHECK(scriptedUser.failures.empty());
            CHECK(scriptedUser.serves <= n + 3);
            CHECK(pc.nothingHeld());
        }
    }
}

TEST_CASE("Every system call of a batch fails in turn, once and for good: each file is whole or told once") {
    using Plan = std::function<void(pc::FaultPlan&, int)>;
    const Plan plans[] = {
        [](pc::FaultPlan& faults, int n) { faults.failCall(n, ERROR_CRC); },
        [](pc::FaultPlan& faults, int n) { faults.failFromCall(n, ERROR_IO_DEVICE); },
        [](pc::FaultPlan& faults, int n) { faults.shortTransfer(n); },
        [](pc::FaultPlan& faults, int n) { faults.failMemory(n); },
    };
    for (const Batch& batch : {kPack, kExtract}) {
        for (const Plan& plan : plans) {
            bool hit = true;
            for (int n = 1; hit; ++n) {
                TestPc pc;
                writeSources(batch);
                scriptedUser.afterFailures.assign(3, IDOK);
                run(batch, "Working", [&] { plan(pc.faults(), n); });
                hit = pc.faults().hit();
                pc.faults().clear();
                CAPTURE(pc.journal().text());
                CHECK(pc.nothingHeld());
                std::string wanted;
                for (const std::string& source : batch.sources) {
                    const auto told = std::count_if(
                        scriptedUser.failures.begin(), scriptedUser.failures.end(), [&](const auto& failure) {
                            return failure.find(' ' + nameOf(source) + ' ') != std::string::npos;
                        });
                    CHECK(told <= 1);
                    wanted += told != 0 ? '-' : 'w';
                }
                CHECK(outcome(batch) == wanted);
                if (!hit) CHECK(wanted == "www");
            }
        }
    }
}
