#pragma once

#include <windows.h>

#include <atomic>
#include <map>
#include <string>

/// What the programs share that try to break the driver: what is counted, who watches, what is printed.
namespace hostile {

struct Tally {
    std::atomic<long> runs{0}, crashes{0}, hangs{0}, leaks{0}, lost{0}, escapes{0};
};

/// One per program. While it lives, every fault of the processor in this process is an escape of the run in
/// which it happens, whoever swallows it; one that nobody does is a crash and ends the program, as does a run
/// that takes too long.
class Proof {
  public:
    /// `--short` among the arguments; any other one is a filter of runs for whoever looks for a fault.
    Proof(int count, char** arguments);
    Proof(const Proof&) = delete;
    Proof& operator=(const Proof&) = delete;

    bool isShort() const { return short_; }
    /// The filter as a number of runs; `otherwise` when there is none.
    long count(long otherwise) const { return filter_.empty() ? otherwise : std::stol(filter_); }
    bool isOnly(const char* name) const { return filter_ == name; }
    /// True for the runs whose names the filter holds.
    bool wants(const std::string& name) const { return name.find(filter_) != std::string::npos; }

    /// From here on everything counts for this row of the table. On standard error it shows how far it is.
    void scene(const std::string& name);
    /// One more run, with its name for whoever reads about its failure.
    void run(std::string name);

    /// What a run may be guilty of, with what there is to say; true when the condition held.
    bool expect(bool condition, std::atomic<long> Tally::*kind, const std::string& what);
    /// The same when a figure is above the one that it had.
    bool expectNoMore(long long before, long long now, std::atomic<long> Tally::*kind,
                      const std::string& what);

    /// Prints the table and the sums. What the program ends with.
    int finish();

  private:
    static long __stdcall onFault(_EXCEPTION_POINTERS* fault) noexcept;
    static long __stdcall onCrash(_EXCEPTION_POINTERS* fault) noexcept;
    static void onAbort(int) noexcept;
    static unsigned long __stdcall watch(void*) noexcept;
    [[noreturn]] void end(std::atomic<long> Tally::*kind, const char* what) noexcept;

    bool short_ = false;
    std::string filter_;
    std::map<std::string, Tally> rows_;
    Tally* row_ = nullptr;
    std::string name_ = "nothing";
    std::atomic<unsigned long> began_{0};
};

/// Bytes that are taken from all heaps of this process.
long long heapBytes();
/// Measures of this process's handles and GDI objects, which grow with their numbers, and its windows.
long handleCount();
long gdiCount();
long userCount();

}  // namespace hostile
