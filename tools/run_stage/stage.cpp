// What both stages have in common: the words of the rows.
#include "tools/run_stage/stage.h"

#include "installed/installed_product.h"

Step box(const std::string& text, const std::string& icon, const std::string& buttons,
         const std::string& reply) {
    return {"Tavlink Installation | " + icon + " | " + text + " | " + buttons, {reply}};
}

bool fits(const Step& step, const std::string& shown) {
    return step.seen.starts_with('*') ? shown.ends_with(step.seen.substr(1)) : shown == step.seen;
}

Step stopped(const std::string& path) {
    return {"stops " + path + '\n', {}, Step::Kind::Unseen};
}

Step copiedOver(const std::string& from, const std::string& to) {
    return {"copies " + from + " to " + to + '\n', {}, Step::Kind::Unseen};
}

Step logged(const std::string& line) {
    return {"logs " + line + '\n', {}, Step::Kind::Unseen};
}

Step dialogOf(const std::string& product, const std::string& choices,
              const std::vector<std::string>& actions, const std::string& build) {
    return {product + ' ' + build +
                " Installation | Please select the type of product to install.\nOnly the live "
                "product works with capture hardware. | " +
                choices + " | Install | Cancel | Help",
            actions};
}

Step choose(const std::string& choice, const std::string& button) {
    return {"* | Install | Cancel | Help", {choice, button}};
}

Step ran(const std::string& program, const std::string& parameters) {
    return {'"' + program + '"' + (parameters.empty() ? "" : " ") + parameters + "\nin " +
                elsewhere.substr(0, elsewhere.size() - 1) + ", shown 1\nend\n",
            {},
            Step::Kind::Program};
}

Step setup(const std::string& productCode, const std::string& programFolder,
           const std::string& type, const std::string& bitness, const std::string& build,
           const std::string& folder) {
    return ran(folder + "Setup.Exe", "/hide_usd -build=" + build + "`-pid=" + productCode +
                                         "`-pf=" + programFolder + "`-type=" + type +
                                         "`-bitness=" + bitness + "`-tmp=" + folder + '`');
}

Step extracted(const std::string& archive) {
    return ran(media + "flatten.exe",
               "-fzx \"" + media + archive + "\" -fzxkey Kq7vR2mXp9Lz4Wc1 -rep \"" + media +
                   "report.txt\" -exdir \"" + testSystemFolder + "\\Drivers\"");
}

Given setupIn(const std::string& folder) {
    return program(folder + "Setup.Exe", scratch + "the installer runs");
}

Given installed(const std::string& key, const std::string& name, const std::string& uninstall,
                const std::string& location, const std::string& version) {
    return [=] {
        const auto set = [&](const char* value, const std::string& text) {
            registered(std::string(uninstallListKey) + '\\' + key, value, text)();
        };
        set("DisplayName", name);
        set("DisplayVersion", version);
        set("UninstallString", uninstall);
        set("InstallLocation", location);
    };
}

Given indexed(const std::string& key, const std::string& programFolder) {
    return [=] {
        for (auto* name : {"Path", "Product Id", "Product Name", "Seinda", "Temp Reference"}) {
            registered(key, name, scratch)();
        }
        registered(key, "Program Folder", programFolder)();
    };
}

void play(const std::vector<Case>& rows) {
    for (const Case& row : rows) {
        play(row);
    }
}
