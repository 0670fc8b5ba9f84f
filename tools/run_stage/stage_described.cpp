#include "tools/run_stage/stage_described.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>

#include "app/install_app.h"
#include "catalogue/product_catalogue.h"
#include "desk/computer/machine_description.h"
#include "desk/western_text.h"
#include "platform/ansi_text.h"

namespace {

/// The machine of the row that is played.
DescribedMachine* onStage = nullptr;

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

std::string wordsOf(const RunStep& step) {
    std::string program = step.program;
    if (program.starts_with('"')) {  // the shell takes a quoted name without its quotes
        program = program.substr(1, program.size() - 2);
    }
    switch (step.kind) {
        case RunStep::Kind::Dialog:
            return described(step.dialog) + '\n';
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
            break;
    }
    return step.succeeded ? ran(program, step.arguments).seen : "";
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

std::string play(const Case& row) {
    if (row.where == Where::OnWindows) {
        return "";
    }
    SCOPED_TRACE(row.name);
    useCodePage(westernCodePage());
    DescribedMachine described;
    onStage = &described;
    setRelease("Windows 7");
    const std::string code = row.name.substr(0, row.name.find(':'));
    CProductData catalogue;
    described.identity.code = code == "1q" ? "1Q" : code;
    std::ignore = catalogue.productName(code, described.identity.name);
    described.commandLine = row.arguments;
    described.commandLine.insert(described.commandLine.begin(), scratch + "Install.exe");
    setupIn(media)();
    file(elsewhere + "ProductData.ini", "[Version Number]\r\nVersion Number=9.9.9.9\r\n")();
    for (const Given& given : row.given) {
        given();
    }

    std::string expected, seen;
    auto next = row.steps.begin();
    described.user =
        [&, meanwhile = described.user](const ShownDialog& dialog) -> std::vector<std::string> {
        if (meanwhile) {
            std::ignore = meanwhile(dialog);
        }
        const std::string shown = ::described(dialog);
        while (next != row.steps.end() &&
               (next->kind == Step::Kind::Program || next->kind == Step::Kind::Unseen ||
                next->kind == Step::Kind::WaitForFile ||
                (next->kind == Step::Kind::DialogOfSomePlatforms && !fits(*next, shown)))) {
            ++next;
        }
        return next == row.steps.end() ? std::vector<std::string>() : (next++)->actions;
    };
    const bool wentOn = CInstallApp(described).InitInstance();
    const bool doesNothing = described.steps.empty();
    const bool launches = !doesNothing && described.steps.back().kind == RunStep::Kind::Launch;
    EXPECT_FALSE((doesNothing && wentOn) || (launches && !wentOn))
        << "InitInstance said " << wentOn;

    for (const Step& step : row.steps) {
        expected += wordsOf(step);
    }
    const auto isDialog = [](const Step& step) { return step.kind == Step::Kind::Dialog; };
    auto dialog = row.steps.begin();
    for (const RunStep& step : described.steps) {
        std::string words = wordsOf(step);
        if (step.kind == RunStep::Kind::Dialog) {
            dialog = std::find_if(dialog, row.steps.end(), isDialog);
            if (dialog != row.steps.end() && fits(*dialog++, words.substr(0, words.size() - 1))) {
                words = std::prev(dialog)->seen + '\n';
            }
        }
        seen += words;
    }
    EXPECT_EQ(seen, expected);
    return seen;
}
