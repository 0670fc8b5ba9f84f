#include "tools/run_stage/stage_described.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <optional>

#include "app/install_app.h"
#include "desk/computer/machine_description.h"
#include "desk/western_text.h"
#include "platform/ansi_text.h"

namespace {

/// The machine of the row that is played.
std::optional<DescribedMachine> onStage;

std::string joined(const std::vector<std::string>& texts, const std::string& mark = "") {
    std::string all;
    for (const std::string& text : texts) {
        all.append(" | ").append(mark).append(text);
    }
    return all;
}

/// A dialog as the real one on the screen is described.
std::string described(const ShownDialog& dialog) {
    const char* const icon = !dialog.icon                        ? ""
                             : dialog.icon == MessageIcon::Error ? " | error"
                                                                 : " | warning";
    return dialog.title + icon + joined(dialog.texts) + joined(dialog.rows, "[x] ") +
           joined(dialog.choices) + joined(dialog.buttons);
}

/// What was done, a dialog aside.
std::string wordsOf(const RunStep& step) {
    std::string program = step.program;
    if (program.starts_with('"')) {  // the shell takes a quoted name without its quotes
        program = program.substr(1, program.size() - 2);
    }
    switch (step.kind) {
        case RunStep::Kind::Stop:
            return stopped(step.program).seen;
        case RunStep::Kind::Copy:
            return copiedOver(step.program, step.target).seen;
        case RunStep::Kind::Log:
            return logged(step.target).seen;
        case RunStep::Kind::Wait:
            return "waits " + std::to_string(step.seconds) + " seconds\n";
        case RunStep::Kind::Run:
        case RunStep::Kind::Launch:
            return step.succeeded ? ran(program, step.arguments).seen : "";
        case RunStep::Kind::Dialog:
            break;
    }
    return "";
}

/// What is expected, as far as it is the same whatever the run comes to.
std::string wordsOf(const Step& step) {
    switch (step.kind) {
        case Step::Kind::Dialog:
            return step.seen + '\n';
        case Step::Kind::DialogOfSomePlatforms:
            return "";
        case Step::Kind::WaitForFile:  // which stays where it is
            return "waits 180 seconds\n";
        case Step::Kind::Program:
        case Step::Kind::Unseen:
            break;
    }
    return step.seen;
}

void addFolders(const std::string& path) {
    onStage->files["C:\\"] = {.kind = PathKind::Directory};
    for (std::size_t end = path.find('\\', 3); end != std::string::npos;
         end = path.find('\\', end + 1)) {
        onStage->files[path.substr(0, end)] =
            onStage->files[path.substr(0, end + 1)] = {.kind = PathKind::Directory};
    }
}

void setRelease(const std::string& name) {
    const MachineDescription description = emptyMachine({name, on64BitWindows() ? 64 : 32});
    onStage->facts = description.facts;
    onStage->wow64 = description.is64Bit;
    onStage->programFiles = description.programFiles;
}

}  // namespace

System stageSystem() {
    return System::Described;
}

bool on64BitWindows() {
    const char* const bits = std::getenv("BITS");
    return bits == nullptr || std::string(bits) != "32";
}

Given machine(const std::function<void(DescribedMachine& machine)>& change) {
    return [=] { change(*onStage); };
}

Given file(const std::string& path, const std::string& content) {
    return [=] {
        addFolders(path);
        onStage->files[path] = {.content = content};
    };
}

Given removed(const std::string& path) {
    return [=] { EXPECT_EQ(onStage->files.erase(path), 1U) << path; };
}

Given program(const std::string& path, const std::string&) {
    return file(path);
}

Given extractionTool(const std::string& report) {
    return [=] {
        program(media + "flatten.exe")();
        onStage->programs[media + "flatten.exe"].writes = {
            {media + "report.txt", {.content = report}}, {unpacked, {}}};
    };
}

Given registered(const std::string& key, const std::string& name, const std::string& text) {
    return [=] { onStage->registry.keys[key][name] = registryText(text); };
}

Given release(const std::string& name) {
    return [=] {
        setRelease(name == "win2k" ? "Windows 2000" : name);
        onStage->facts.servicePack = "Service Pack 4";
    };
}

void clearStage(const ProductIdentity& product) {
    useCodePage(westernCodePage());
    onStage.emplace().identity = product;
    setRelease("Windows 7");
}

Performance perform(const Case& row) {
    onStage->commandLine = row.arguments;
    onStage->commandLine.insert(onStage->commandLine.begin(), scratch + "Install.exe");
    std::vector<std::string> dialogs;  ///< in the row's words, where they fit
    auto next = row.steps.begin();
    onStage->user = [&, meanwhile =
                            onStage->user](const ShownDialog& dialog) -> std::vector<std::string> {
        if (meanwhile) {
            std::ignore = meanwhile(dialog);
        }
        next = std::find_if(next, row.steps.end(),
                            [](const Step& step) { return step.kind == Step::Kind::Dialog; });
        const Step step = next == row.steps.end() ? Step() : *next++;
        const std::string shown = described(dialog);
        dialogs.push_back(fits(step, shown) ? step.seen : shown);
        return step.actions;
    };
    CInstallApp app(*onStage);
    const bool wentOn = app.InitInstance();
    const bool launches =
        !onStage->steps.empty() && onStage->steps.back().kind == RunStep::Kind::Launch;
    EXPECT_LE(launches, wentOn) << "a run that launches goes on";
    EXPECT_LE(wentOn, app.productType != 0 && !onStage->steps.empty())
        << "only a run with a type goes on";
    EXPECT_EQ(onStage->dispatches, app.selectionState == 1 ? 1 : 0);

    Performance run;
    for (const Step& step : row.steps) {
        run.expected += wordsOf(step);
    }
    auto dialog = dialogs.begin();
    for (const RunStep& step : onStage->steps) {
        run.seen += step.kind == RunStep::Kind::Dialog ? *dialog++ + '\n' : wordsOf(step);
    }
    return run;
}
