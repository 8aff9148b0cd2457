// The entry of every test program. A program in which no test ran has failed: nothing was tested.
#define DOCTEST_CONFIG_IMPLEMENT
#include <doctest/doctest.h>

#include <cstdio>

namespace {

unsigned testsRun = 0;

struct Counter final : doctest::IReporter {
    explicit Counter(const doctest::ContextOptions& /*options*/) {}
    void report_query(const doctest::QueryData& /*query*/) override {}
    void test_run_start() override {}
    void test_run_end(const doctest::TestRunStats& stats) override {
        testsRun = stats.numTestCasesPassingFilters;
    }
    void test_case_start(const doctest::TestCaseData& /*test*/) override {}
    void test_case_reenter(const doctest::TestCaseData& /*test*/) override {}
    void test_case_end(const doctest::CurrentTestCaseStats& /*stats*/) override {}
    void test_case_exception(const doctest::TestCaseException& /*exception*/) override {}
    void subcase_start(const doctest::SubcaseSignature& /*subcase*/) override {}
    void subcase_end() override {}
    void log_assert(const doctest::AssertData& /*assertion*/) override {}
    void log_message(const doctest::MessageData& /*message*/) override {}
    void test_case_skipped(const doctest::TestCaseData& /*test*/) override {}
};

}  // namespace

REGISTER_LISTENER("counter", 1, Counter);

int main(int argc, char** argv) {
    doctest::Context context(argc, argv);
    const int result = context.run();
    if (context.shouldExit()) return result;  // a query, such as --list-test-cases
    if (testsRun == 0) {
        std::fputs("no test ran\n", stderr);
        return 1;
    }
    return result;
}
