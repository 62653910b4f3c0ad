#pragma once

#include <windows.h>

#include <atomic>
#include <functional>
#include <map>
#include <string>
#include <vector>

/// What the programs share that try to break the driver: what is counted, who watches, what is printed.
namespace hostile {

struct Tally {
    std::atomic<long> runs{0}, crashes{0}, hangs{0}, leaks{0}, lost{0}, escapes{0};
};
using Figure = std::atomic<long> Tally::*;

/// One per program. While it lives, every fault of the processor in this process is an escape of the run in
/// which it happens, whoever swallows it; one that nobody does is a crash and ends the program, as does a run
/// that takes too long.
class Proof {
  public:
    /// usage: PROGRAM [--short] [--OPTION=VALUE ...] [SCENE [RUN]]
    /// The scene that alone is done, and what the names of its runs hold, for whoever looks for a fault.
    Proof(int count, char** arguments);
    Proof(const Proof&) = delete;
    Proof& operator=(const Proof&) = delete;

    bool isShort() const { return has("--short"); }
    bool has(const std::string& option) const { return options_.contains(option); }
    std::string valueOf(const std::string& option, const char* otherwise) const {
        return has(option) ? options_.at(option) : otherwise;
    }
    /// The scene has been asked for by its name.
    bool isNamed(const std::string& scene) const { return !words_.empty() && words_[0] == scene; }
    bool wantsScene(const std::string& scene) const { return words_.empty() || isNamed(scene); }
    bool wantsRun(const std::string& name) const {
        return words_.size() < 2 || name.find(words_[1]) != std::string::npos;
    }

    /// From here on everything counts for this row of the table. On standard error it shows how far it is.
    void scene(const std::string& name);
    /// One more run, with its name for whoever reads about its failure.
    void run(std::string name);

    /// What a run may be guilty of, with what there is to say; true when the condition held.
    bool expect(bool condition, Figure figure, const std::string& what);
    /// The same when a number is above the one that it had.
    bool expectNoMore(long long before, long long now, Figure figure, const std::string& what);

    /// Prints the table and the sums. What the program ends with.
    int finish();
    /// The current run has ended this program.
    [[noreturn]] static void end(Figure figure, const char* what) noexcept;

  private:
    std::map<std::string, std::string> options_;
    std::vector<std::string> words_;
    std::map<std::string, Tally> rows_;
    Tally* row_ = nullptr;
    std::string name_ = "nothing";
};

/// A part of a program.
struct Scene {
    std::string name;
    std::function<void(Proof&)> play;
    /// It is done only when somebody asks for it.
    bool isExtra = false;
};

/// The `main` of a program: a single-threaded apartment, as the driver's client has it, and all scenes that
/// are wanted.
int playAll(int count, char** arguments, const std::vector<Scene>& scenes);

}  // namespace hostile
