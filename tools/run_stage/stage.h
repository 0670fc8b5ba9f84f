// A run of the installer as a row: what the user sees and answers, which programs are started, and
// what lies on the machine. Every run starts from nothing. The same rows are played by the real
// program on Windows (stage_win.cpp) and by the run's own code on a described machine
// (stage_described.cpp).
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "app/stamped_identity.h"
#include "installed/installed_product.h"

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
        DialogOfSomePlatforms,  ///< comes or does not; never on the described machine
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
[[nodiscard]] inline bool fits(const Step& step, const std::string& shown) {
    return step.seen.starts_with('*') ? shown.ends_with(step.seen.substr(1)) : shown == step.seen;
}

/// A message box of the installer's.
[[nodiscard]] inline Step box(const std::string& text, const std::string& icon,
                              const std::string& buttons = "OK", const std::string& reply = "OK") {
    return {"Tavlink Installation | " + icon + " | " + text + " | " + buttons, {reply}};
}

/// For a program that cannot be started the shell has a message of its own, ahead of what the
/// installer has to say.
inline const Step shellMessage{"* | OK", {"OK"}, Step::Kind::DialogOfSomePlatforms};
inline const Step cannotStart{"Error | warning | Unknown ShellExecute error ! | OK", {"OK"}};

[[nodiscard]] inline Step stopped(const std::string& path) {
    return {"stops " + path + '\n', {}, Step::Kind::Unseen};
}

[[nodiscard]] inline Step copiedOver(const std::string& from, const std::string& to) {
    return {"copies " + from + " to " + to + '\n', {}, Step::Kind::Unseen};
}

[[nodiscard]] inline Step logged(const std::string& line) {
    return {"logs " + line + '\n', {}, Step::Kind::Unseen};
}

inline const std::string allChoices = "Live Product | File Viewer | Demonstration";
/// The "Install Product" dialog of a product that has these choices.
[[nodiscard]] inline Step dialogOf(const std::string& product, const std::string& choices,
                                   const std::vector<std::string>& actions,
                                   const std::string& build = defaultBuild) {
    return {product + ' ' + build +
                " Installation | Please select the type of product to install.\nOnly the live "
                "product works with capture hardware. | " +
                choices + " | Install | Cancel | Help",
            actions};
}

/// The same of any product.
[[nodiscard]] inline Step choose(const std::string& choice, const std::string& button = "Install") {
    return {"* | Install | Cancel | Help", {choice, button}};
}

inline const Step chooseLive = choose("Live Product");

/// A program that is started, and waited for unless it is "Setup.Exe".
[[nodiscard]] inline Step ran(const std::string& program, const std::string& parameters = "") {
    return {'"' + program + '"' + (parameters.empty() ? "" : " ") + parameters + "\nin " +
                elsewhere.substr(0, elsewhere.size() - 1) + ", shown 1\nend\n",
            {},
            Step::Kind::Program};
}

/// "Setup.Exe" in `folder`, with these fields.
[[nodiscard]] inline Step setup(const std::string& productCode, const std::string& programFolder,
                                const std::string& type = "LIVE",
                                const std::string& bitness = "x86",
                                const std::string& build = defaultBuild,
                                const std::string& folder = media) {
    return ran(folder + "Setup.Exe", "/hide_usd -build=" + build + "`-pid=" + productCode +
                                         "`-pf=" + programFolder + "`-type=" + type +
                                         "`-bitness=" + bitness + "`-tmp=" + folder + '`');
}

inline const Step classicSetup = setup("04", "Halvick Tavlink Classic Analyzer 16.4.10002.0");

[[nodiscard]] inline Step extracted(const std::string& archive) {
    return ran(media + "flatten.exe",
               "-fzx \"" + media + archive + "\" -fzxkey Kq7vR2mXp9Lz4Wc1 -rep \"" + media +
                   "report.txt\" -exdir \"" + testSystemFolder + "\\Drivers\"");
}

/// Puts something on the machine before the run. Beside it there is "Setup.Exe" on the media.
using Given = std::function<void()>;
[[nodiscard]] Given file(const std::string& path, const std::string& content = "");
[[nodiscard]] Given removed(const std::string& path);
/// A recording stand-in, which takes a while; the script as the recorder has it.
[[nodiscard]] Given program(const std::string& path, const std::string& script = "100");

[[nodiscard]] inline Given setupIn(const std::string& folder) {
    return program(folder + "Setup.Exe", scratch + "the installer runs");
}

[[nodiscard]] Given extractionTool(const std::string& report =
                                       "unpacked \"sub folder\\dpinst_32.exe\" and "
                                       "\"sub folder\\dpinst_64.exe\"\r\n");
/// A text below HKEY_LOCAL_MACHINE.
[[nodiscard]] Given registered(const std::string& key, const std::string& name,
                               const std::string& text);

/// An entry of the platform's list of installed programs, in the order of `key`: "a" to "h".
[[nodiscard]] inline Given installed(const std::string& key, const std::string& name,
                                     const std::string& uninstall,
                                     const std::string& location = "x",
                                     const std::string& version = "12.0.0.0") {
    return [=] {
        for (const auto& [value, text] : {std::pair("DisplayName", name),
                                          {"DisplayVersion", version},
                                          {"UninstallString", uninstall},
                                          {"InstallLocation", location}}) {
            registered(std::string(uninstallListKey) + '\\' + key, value, text)();
        }
    };
}

/// An installation in the maker's registry trees.
[[nodiscard]] inline Given indexed(const std::string& key, const std::string& programFolder) {
    return [=] {
        for (auto* name : {"Path", "Product Id", "Product Name", "Seinda", "Temp Reference"}) {
            registered(key, name, scratch)();
        }
        registered(key, "Program Folder", programFolder)();
    };
}

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

// What each stage has of its own: stage.cpp plays every row by these two.

/// What was expected of a run, and what was seen of it.
struct Performance {
    std::string expected, seen;
    bool hangs = false;
};
/// Leaves nothing on the machine but the installer of this product; with an empty code, of none.
void clearStage(const ProductIdentity& product);
[[nodiscard]] Performance perform(const Case& row);
