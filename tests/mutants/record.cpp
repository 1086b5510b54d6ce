// Linked to a changed test program: takes the number of the change to try from MUTANT, and with MUTANT_NOTES
// writes for each test a line of its name, its time in milliseconds of the processor, and the numbers
// reached.
#include "tests/mutants/mutant.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>

namespace kestrelmoor::mutant {

namespace {

double Milliseconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

class Recorder : public testing::EmptyTestEventListener {
  public:
    explicit Recorder(const char* path) : mFile(std::fopen(path, "w")) {}
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;
    ~Recorder() override {
        if (mFile != nullptr)
            std::fclose(mFile);
    }

    // What a suite does before its first test counts for that test.
    void OnTestStart(const testing::TestInfo& /*test*/) override { mStart = Milliseconds(); }

    void OnTestEnd(const testing::TestInfo& test) override {
        if (mFile == nullptr || getpid() != mOwner)
            return;
        std::fprintf(mFile, "%s.%s %.3f", test.test_suite_name(), test.name(), Milliseconds() - mStart);
        for (unsigned number = 0; number < kMost; ++number)
            if (notes[number] != 0)
                std::fprintf(mFile, " %u", number);
        std::fputs("\n", mFile);
        std::fflush(mFile);
        std::fill_n(notes, kMost, static_cast<unsigned char>(0));
    }

  private:
    std::FILE* mFile;
    const pid_t mOwner = getpid();
    double mStart = 0;
};

/// A test may run a part of itself in another process: the notes lie in a file that both have open.
void ShareNotes(const std::string& path) {
    const int file = open(path.c_str(), O_RDWR | O_CREAT, 0600);
    if (file < 0 || ftruncate(file, kMost) != 0)
        std::abort();
    void* const shared = mmap(nullptr, kMost, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    if (shared == MAP_FAILED)
        std::abort();
    close(file);
    notes = static_cast<unsigned char*>(shared);
}

const bool kReady = [] {
    if (const char* const number = std::getenv("MUTANT"))
        active = static_cast<unsigned>(std::strtoul(number, nullptr, 10));
    if (const char* const path = std::getenv("MUTANT_NOTES")) {
        ShareNotes(std::string(path) + ".shared");
        const bool child = std::getenv("MUTANT_NOTES_TAKEN") != nullptr;
        setenv("MUTANT_NOTES_TAKEN", "1", 1);
        if (!child)
            testing::UnitTest::GetInstance()->listeners().Append(new Recorder(path));
    }
    return true;
}();

} // namespace

} // namespace kestrelmoor::mutant
