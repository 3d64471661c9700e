// Kills the driver at random moments, while it edits and saves and while it starts, and looks each
// time at what is on the disk and at what the next start makes of it.
// Usage: korvane_kill_test DRIVER [KILLS [SEED]]
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <map>
#include <random>
#include <sstream>
#include <thread>

#include "files/FileBuffer.h"
#include "files/mObjectFile.h"
#include "files/mSettingsFile.h"
#include "support/TempFolder.h"
#include "support/VersionedScene.h"

namespace korvane::test {
namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;

/// What the driver told: the versions of each kind of line.
using Told = std::map<std::string, std::vector<int>>;

int Highest(const Told& told, const std::string& what) {
    const auto found = told.find(what);
    return found == told.end() ? -1 : std::ranges::max(found->second);
}

int Count(const Told& told, const std::string& what) {
    const auto found = told.find(what);
    return found == told.end() ? 0 : static_cast<int>(found->second.size());
}

/// A run of the driver.
class Driver {
  public:
    explicit Driver(std::vector<std::string> arguments) {
        int ends[2];
        if (pipe(ends) != 0) std::abort();
        process_ = fork();
        if (process_ == 0) {
            dup2(ends[1], STDOUT_FILENO);
            close(ends[0]);
            close(ends[1]);
            std::vector<char*> argv;
            for (std::string& argument : arguments) argv.push_back(argument.data());
            argv.push_back(nullptr);
            execv(argv[0], argv.data());
            _exit(127);
        }
        close(ends[1]);
        out_ = ends[0];
    }

    /// Reads on until the driver tells that it works; false when it ended before.
    bool AwaitWork() {
        while (text_.find("works") == text_.npos)
            if (!Read()) return false;
        return true;
    }

    void Kill() { kill(process_, SIGKILL); }

    /// Reads what is still to be told, to the end of the process. Whether it ended as it should.
    bool AwaitEnd() {
        while (Read()) continue;
        close(out_);
        int status = 0;
        waitpid(process_, &status, 0);
        return WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }

    Told WhatWasTold() const {
        Told told;
        std::istringstream lines(text_);
        std::string what;
        int version = 0;
        while (lines >> what >> version) told[what].push_back(version);
        return told;
    }

  private:
    bool Read() {
        char piece[4096];
        const ssize_t count = read(out_, piece, sizeof piece);
        if (count > 0) text_.append(piece, static_cast<std::size_t>(count));
        return count > 0;
    }

    pid_t process_;
    int out_;
    std::string text_;
};

struct Figures {
    int kills = 0, early = 0, saves = 0, edits = 0, restored = 0, faults = 0;
};

class KillTest {
  public:
    KillTest(std::string driver, int kills, unsigned seed)
        : driver_(std::move(driver)), kills_(kills), random_(seed) {}

    int Run() {
        fs::create_directory(folder_.Path("ObjTextures"));
        for (int i = 0; i < kills_; ++i) KillOnce();
        EndWell();
        std::printf(
            "kills %d (%d of them during the start), edits %d, saves %d, restored %d, "
            "temporary files left beside the object %td, faults %d\n",
            figures_.kills, figures_.early, figures_.edits, figures_.saves, figures_.restored,
            Temporaries(), figures_.faults);
        return figures_.faults == 0 ? 0 : 1;
    }

  private:
    /// A scene of 1.6 MB: its files take a while to write.
    std::vector<std::string> Arguments(const char* way) {
        return {driver_, folder_.Path(), std::to_string(random_()), "1500", way};
    }

    void KillOnce() {
        Driver driver(Arguments("work"));
        const bool early = random_() % 8 == 0;
        if (!early && !driver.AwaitWork()) return Fault("the driver did not start");
        std::this_thread::sleep_for(milliseconds(random_() % (early ? 1500 : 500)));
        driver.Kill();
        driver.AwaitEnd();
        ++figures_.kills;
        figures_.early += early;
        CheckStart(driver.WhatWasTold());
        TakeIn(driver.WhatWasTold());
        CheckFiles();
    }

    /// What the start found: all that was done, but for the last command.
    void CheckStart(const Told& told) {
        const int restored = Highest(told, "restored"), opened = Highest(told, "opened");
        if (!told.contains("restored") && !told.contains("opened")) return;  // killed before
        const int found = std::max(restored, opened);
        figures_.restored += Count(told, "restored");
        if (found < std::max(edited_ - 1, saved_) || found > begun_)
            Fault("found version " + std::to_string(found) + " of " + std::to_string(edited_));
        edited_ = begun_ = found;
    }

    void TakeIn(const Told& told) {
        figures_.edits += Count(told, "edited");
        figures_.saves += Count(told, "saved");
        edited_ = std::max(edited_, Highest(told, "edited"));
        begun_ = std::max({begun_, edited_, Highest(told, "edit"), Highest(told, "save")});
        saving_ = std::max(saving_, Highest(told, "save"));
        saved_ = std::max(saved_, Highest(told, "saved"));
        if (told.contains("failed")) Fault("a save failed");
    }

    void CheckFiles() {
        const auto object = LoadFile(folder_.Path("object.kvobject"));
        const auto brushes = object ? DecodeObject(*object, TextureLibrary(), false) : std::nullopt;
        const int version = brushes ? VersionOf(*brushes) : -1;
        if (version < saved_ || version > saving_)
            Fault("the object file holds version " + std::to_string(version) + ", saved were " +
                  std::to_string(saved_) + " to " + std::to_string(saving_));
        const auto bytes = LoadFile(folder_.Path("Korvane.kvdat"));
        Settings settings;
        if (bytes && !DecodeSettings(*bytes, settings)) Fault("the settings file is torn");
    }

    /// A run that is closed leaves nothing, and finds what was there.
    void EndWell() {
        Driver driver(Arguments("end"));
        if (!driver.AwaitEnd()) Fault("the last run did not end well");
        CheckStart(driver.WhatWasTold());
        if (!fs::is_empty(folder_.Path("ObjCache"))) Fault("a run that was closed left files");
    }

    std::ptrdiff_t Temporaries() const {
        return std::ranges::count_if(fs::directory_iterator(folder_.Path()), [](const auto& entry) {
            return entry.path().extension() == ".tmp";
        });
    }

    void Fault(const std::string& what) {
        ++figures_.faults;
        std::printf("FAILED after %d kills: %s\n", figures_.kills, what.c_str());
    }

    std::string driver_;
    int kills_;
    std::mt19937 random_;
    TempFolder folder_;
    Figures figures_;
    int edited_ = -1, begun_ = -1;  ///< the last version that was done, and begun
    int saved_ = -1, saving_ = -1;
};

}  // namespace
}  // namespace korvane::test

int main(int argc, char** argv) {
    if (argc < 2) return 2;
    const int kills = argc > 2 ? std::stoi(argv[2]) : 12;
    const unsigned seed = argc > 3 ? static_cast<unsigned>(std::stoul(argv[3])) : 1;
    return korvane::test::KillTest(argv[1], kills, seed).Run();
}
