// All that a run of the installer deals with: media with a "Setup.Exe", installed versions, the
// registry and the record of what was started. Gone with the object.
#pragma once

#include <windows.h>

#include <string>
#include <utility>
#include <vector>

#include "tools/dialog_driver/installer_run_win.h"

/// A dialog of the run. `seen` is its whole description; one that starts with "*" is the end of it.
struct Step {
    std::string seen;
    std::vector<std::string> actions;  ///< as DialogWindow::act takes them
};
using Steps = std::vector<Step>;

/// A message box of the installer's, answered with `reply`.
Step box(const std::string& text, const std::string& icon, const std::string& buttons = "OK",
         const std::string& reply = "OK");
/// For a program that cannot be started the shell has a message of its own, ahead of what the
/// installer has to say.
inline const Step shellMessage{"* | OK", {"OK"}};
/// The "Install Product" dialog, answered by this choice.
Step choose(const std::string& choice);
inline const Step chooseLive = choose("Live Product");

bool on64BitWindows();
inline constexpr const char* defaultBuild = "16.4.10002.0";

class Stage {
  public:
    /// With the installer of this product on the media.
    explicit Stage(const std::string& code, const std::string& mediaName = "media");
    ~Stage();

    /// Full path of a file on the media.
    std::string path(const std::string& name) const { return folder + name; }
    /// A recording stand-in under this path, its folder made; the script as the recorder has it.
    void layOut(const std::string& program, const std::string& script = "") const;

    void setRegistry(HKEY root, const std::string& key, const std::string& name,
                     const std::string& text);
    /// An entry of the platform's list of installed programs.
    void addInstalled(const std::string& key, const std::string& name, const std::string& version,
                      const std::string& uninstall, const std::string& location);

    /// An installation in the maker's registry tree.
    void addToIndex(const std::string& key, const std::string& programFolder);

    /// The start and the end of a program, as recorded.
    static std::string ran(const std::string& program, const std::string& parameters = "");
    /// The same of "Setup.Exe".
    std::string setup(const std::string& pid, const std::string& programFolder,
                      const std::string& type = "LIVE", const std::string& bitness = "x86",
                      const std::string& build = defaultBuild) const;

    std::string records() const;
    /// Waits until the records are these.
    void awaitRecords(const std::string& expected) const;
    /// The run must end without a further dialog.
    static void expectEnd(InstallerRun& run);

    /// "-dir" with the media.
    std::string arguments() const;
    /// The run must show these dialogs and no others, and leave these records.
    void run(const Steps& steps, const std::string& expected) const {
        run(arguments(), steps, expected);
    }
    void run(const std::string& arguments, const Steps& steps, const std::string& expected) const;

    const std::string scratch = "C:\\end to end\\";  ///< folder around the media
    const std::string folder;                        ///< ends in a backslash
    const std::string installer;

  private:
    std::vector<std::pair<HKEY, std::string>> keys;
};

/// A copy of a file that lies beside the tests.
void layOutFile(const std::string& name, const std::string& path);
void writeFile(const std::string& path, const std::string& content);
std::string readFile(const std::string& path);
void removeFolder(const std::string& path);
