// A run of the installer as a row: what lies on the machine, what the user sees and answers, and
// which programs are started. Every run starts from nothing and leaves nothing.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

inline const std::string scratch = "C:\\end to end\\";  ///< holds all but the drivers and the log
inline const std::string media = scratch + "media\\";   ///< "-dir" names it, where a row does not
/// The current folder of each run, holding product data of another build.
inline const std::string elsewhere = scratch + "elsewhere\\";

inline constexpr const char* defaultBuild = "16.4.10002.0";
[[nodiscard]] bool on64BitWindows();
/// "x64" or "x86".
inline const std::string processor = on64BitWindows() ? "x64" : "x86";

/// What the run comes to next.
struct Step {
    /// A dialog's whole description, or the end of one behind a "*"; of programs the records.
    std::string seen;
    /// On a dialog, as DialogWindow::act takes them.
    std::vector<std::string> actions = {};
    enum class Kind { Dialog, DialogOfSomePlatforms, Programs } kind = Kind::Dialog;
    /// For programs: a file that keeps the run waiting until it is gone, as it is in the end.
    std::string marker = {};
};

/// A message box of the installer's.
[[nodiscard]] Step box(const std::string& text, const std::string& icon,
                       const std::string& buttons = "OK", const std::string& reply = "OK");
/// For a program that cannot be started the shell has a message of its own, ahead of what the
/// installer has to say.
inline const Step shellMessage{"* | OK", {"OK"}};
/// The "Install Product" dialog.
[[nodiscard]] Step choose(const std::string& choice, const std::string& button = "Install");
inline const Step chooseLive = choose("Live Product");
/// A program that is started, and waited for unless it is the last.
[[nodiscard]] Step ran(const std::string& program, const std::string& parameters = "");
/// "Setup.Exe" in `folder`, with these fields.
[[nodiscard]] Step setup(const std::string& productCode, const std::string& programFolder,
                         const std::string& type = "LIVE", const std::string& bitness = "x86",
                         const std::string& build = defaultBuild,
                         const std::string& folder = media);

class Stage;
/// Something that is on the machine before the run.
using Given = std::function<void(Stage&)>;
[[nodiscard]] Given file(const std::string& path, const std::string& content = "");
[[nodiscard]] Given removed(const std::string& path);
/// A recording stand-in; the script as the recorder has it.
[[nodiscard]] Given program(const std::string& path, const std::string& script = "");
/// "Setup.Exe" in a further folder; it goes on until the installer has ended.
[[nodiscard]] Given setupIn(const std::string& folder);
/// A stand-in at work, before and during the run.
[[nodiscard]] Given running(const std::string& path);
/// A text of the registry.
[[nodiscard]] Given registered(HKEY root, const std::string& key, const std::string& name,
                               const std::string& text, REGSAM view = 0);
/// An entry of the platform's list of installed programs, listed in the order of `key`.
[[nodiscard]] Given installed(const std::string& key, const std::string& name,
                              const std::string& uninstall, const std::string& location = "x",
                              const std::string& version = "12.0.0.0", REGSAM view = 0);
/// An installation in the maker's registry tree.
[[nodiscard]] Given indexed(const std::string& key, const std::string& programFolder);
/// The release of Windows that Wine reports to the installer.
[[nodiscard]] Given release(const std::string& name);
/// Another product in the installer's stamp, or none.
[[nodiscard]] Given stamped(const std::string& code, const std::string& name);

struct Case {
    std::string what;     ///< names the row
    std::string product;  ///< the code of the installer
    std::vector<Given> given = {};
    std::vector<Step> steps = {};  ///< all dialogs and programs, in their order
    std::string arguments = "-dir \"C:\\end to end\\media\"";
    /// Looks at what the run has left.
    std::function<void(Stage&)> afterwards = [](Stage&) {};
};

/// Runs the installer and tells what differs; gives up at the first dialog that is not expected.
/// Returns all that was seen.
std::string play(const Case& row);
void play(const std::vector<Case>& rows);

class Stage {
  public:
    explicit Stage(const Case& row);
    ~Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    std::vector<PROCESS_INFORMATION> copies;  ///< running
    std::vector<std::pair<HKEY, std::string>> keys;
};

/// The name and the full path of what the extraction tool unpacks.
inline const std::string driverInstaller = on64BitWindows() ? "dpinst_64.exe" : "dpinst_32.exe";
inline const std::string testSystemFolder = std::string("C:\\Program Files") +
                                            (on64BitWindows() ? " (x86)" : "") +
                                            "\\Halvick Test System II";
inline const std::string unpacked = testSystemFolder + "\\Drivers\\sub folder\\" + driverInstaller;
[[nodiscard]] Given extractionTool(const std::string& report =
                                       "unpacked \"sub folder\\dpinst_32.exe\" and "
                                       "\"sub folder\\dpinst_64.exe\"\r\n");
[[nodiscard]] Step extracted(const std::string& archive);

inline const std::string installer = scratch + "Install.exe";
/// A copy of a file that lies beside the tests, its folder made.
void layOut(const std::string& name, const std::string& path);
[[nodiscard]] std::string readFile(const std::string& path);
void writeFile(const std::string& path, const std::string& content);
void removeFolder(const std::string& path);
