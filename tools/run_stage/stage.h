// A run of the installer as a row: what the user sees and answers, which programs are started, and
// what lies on the machine. Every run starts from nothing. The same rows are played by the real
// program on Windows (stage_win.cpp) and by the run's own code on a described machine
// (stage_described.cpp).
#pragma once

#include <functional>
#include <string>
#include <vector>

inline const std::string scratch = "C:\\end to end\\";  ///< holds the installer and its data
inline const std::string media = scratch + "media\\";
/// The current folder, which has product data of another build.
inline const std::string elsewhere = scratch + "elsewhere\\";
inline constexpr const char* defaultBuild = "16.4.10002.0";

/// What the stage is; each has faults of its own, for which a row may have to differ.
enum class System { Described, Windows, Wine, ReactOs };
[[nodiscard]] System stageSystem();
[[nodiscard]] bool on64BitWindows();
inline const std::string processor = on64BitWindows() ? "x64" : "x86";
/// The name and the full path of what the extraction tool unpacks.
inline const std::string driverInstaller = on64BitWindows() ? "dpinst_64.exe" : "dpinst_32.exe";
inline const std::string testSystemFolder = std::string("C:\\Program Files") +
                                            (on64BitWindows() ? " (x86)" : "") +
                                            "\\Halvick Test System II";
inline const std::string unpacked = testSystemFolder + "\\Drivers\\sub folder\\" + driverInstaller;

/// What a run comes to.
struct Step {
    enum class Kind {
        Dialog,                 ///< `seen` is its whole description, or behind a "*" the end of it
        DialogOfSomePlatforms,  ///< comes or does not
        Program,                ///< `seen` is its record
        WaitForFile,            ///< nothing happens while the file `seen` is there; then it goes
        Unseen,                 ///< known on the described machine alone
    };
    std::string seen;
    std::vector<std::string> actions = {};  ///< on a dialog, as DialogWindow::act takes them
    Kind kind = Kind::Dialog;
    /// While the dialog stands, ahead of the actions, or the program runs; on a real machine alone.
    std::function<void()> meanwhile = [] {};
};
/// Whether this dialog is the one that `step` expects.
[[nodiscard]] bool fits(const Step& step, const std::string& shown);
/// A message box of the installer's.
[[nodiscard]] Step box(const std::string& text, const std::string& icon,
                       const std::string& buttons = "OK", const std::string& reply = "OK");
/// For a program that cannot be started the shell has a message of its own, ahead of what the
/// installer has to say.
inline const Step shellMessage{"* | OK", {"OK"}, Step::Kind::DialogOfSomePlatforms};
inline const Step cannotStart{"Error | warning | Unknown ShellExecute error ! | OK", {"OK"}};
[[nodiscard]] Step stopped(const std::string& path);
[[nodiscard]] Step copiedOver(const std::string& from, const std::string& to);
[[nodiscard]] Step logged(const std::string& line);
inline const std::string allChoices = "Live Product | File Viewer | Demonstration";
/// The "Install Product" dialog of a product that has these choices.
[[nodiscard]] Step dialogOf(const std::string& product, const std::string& choices,
                            const std::vector<std::string>& actions,
                            const std::string& build = defaultBuild);
/// The same of any product.
[[nodiscard]] Step choose(const std::string& choice, const std::string& button = "Install");
inline const Step chooseLive = choose("Live Product");
/// A program that is started, and waited for unless it is "Setup.Exe".
[[nodiscard]] Step ran(const std::string& program, const std::string& parameters = "");
/// "Setup.Exe" in `folder`, with these fields.
[[nodiscard]] Step setup(const std::string& productCode, const std::string& programFolder,
                         const std::string& type = "LIVE", const std::string& bitness = "x86",
                         const std::string& build = defaultBuild,
                         const std::string& folder = media);
inline const Step classicSetup = setup("04", "Halvick Tavlink Classic Analyzer 16.4.10002.0");
[[nodiscard]] Step extracted(const std::string& archive);

/// Puts something on the machine before the run. Beside it there is "Setup.Exe" on the media.
using Given = std::function<void()>;
[[nodiscard]] Given file(const std::string& path, const std::string& content = "");
[[nodiscard]] Given removed(const std::string& path);
/// A recording stand-in, which takes a while; the script as the recorder has it.
[[nodiscard]] Given program(const std::string& path, const std::string& script = "100");
[[nodiscard]] Given setupIn(const std::string& folder);
[[nodiscard]] Given extractionTool(const std::string& report =
                                       "unpacked \"sub folder\\dpinst_32.exe\" and "
                                       "\"sub folder\\dpinst_64.exe\"\r\n");
/// A text below HKEY_LOCAL_MACHINE.
[[nodiscard]] Given registered(const std::string& key, const std::string& name,
                               const std::string& text);
/// An entry of the platform's list of installed programs, in the order of `key`: "a" to "h".
[[nodiscard]] Given installed(const std::string& key, const std::string& name,
                              const std::string& uninstall, const std::string& location = "x",
                              const std::string& version = "12.0.0.0");
/// An installation in the maker's registry trees.
[[nodiscard]] Given indexed(const std::string& key, const std::string& programFolder);
/// The release of Windows that is reported to the installer, as Wine calls it.
[[nodiscard]] Given release(const std::string& name);

/// Where a row is played.
enum class Where { Everywhere, OnWindows, Described };

struct Case {
    std::string name;         ///< begins with the product's code and a colon
    std::vector<Step> steps;  ///< all that the run comes to, in this order
    std::vector<Given> given = {};
    std::vector<std::string> arguments = {"-dir", "C:\\end to end\\media"};
    Where where = Where::Everywhere;
};
inline Case onWindows(Case row) {
    row.where = Where::OnWindows;
    return row;
}
inline Case onDescribedMachine(Case row) {
    row.where = Where::Described;
    return row;
}
/// Plays a run and tells what differs; gives up at the first dialog that is not expected. Returns
/// all that was seen.
std::string play(const Case& row);
void play(const std::vector<Case>& rows);
