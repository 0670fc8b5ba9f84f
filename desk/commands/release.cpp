// Makes the installers of all products.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <atomic>
#include <exception>
#include <filesystem>
#include <iostream>
#include <memory>
#include <mutex>
#include <nlohmann/json.hpp>
#include <thread>

#include "desk/commands/command.h"
#include "desk/executables/bill_of_materials.h"
#include "desk/executables/executable.h"
#include "desk/executables/sha256.h"
#include "desk/executables/shell_command.h"
#include "desk/executables/stamp_image.h"
#include "desk/executables/stamping.h"
#include "desk/executables/version_stamp.h"
#include "desk/media/file_copy.h"
#include "desk/media/product_facts.h"
#include "desk/media/release_folder.h"
#include "desk/media/staging.h"
#include "desk/refusal.h"
#include "desk/table.h"
#include "desk/whole_file.h"

namespace {

namespace fs = std::filesystem;

struct Choices {
    std::string folder;
    std::string installer = "build/release/installer.exe";
    std::string build;
    std::string signCommand;
    std::string verifyCommand;
    unsigned jobs = std::max(1U, std::thread::hardware_concurrency());
};

/// Calls `work` for each index below `count` from several threads. Throws what the first failing
/// call threw, once all have come to rest.
template <class Work>
void inParallel(std::size_t count, unsigned jobs, Work work) {
    std::atomic<std::size_t> next = 0;
    std::exception_ptr failure;
    std::mutex failureLock;
    const auto run = [&] {
        for (std::size_t index; (index = next++) < count;) {
            try {
                stopWhenAsked();
                work(index);
            } catch (...) {
                const std::lock_guard lock(failureLock);
                failure = failure ? failure : std::current_exception();
                next = count;
            }
        }
    };
    std::vector<std::thread> threads;
    for (unsigned index = 1; index < jobs; ++index) {
        threads.emplace_back(run);
    }
    run();
    for (std::thread& thread : threads) {
        thread.join();
    }
    if (failure) {
        std::rethrow_exception(failure);
    }
}

[[noreturn]] void refuse(const fs::path& file, const char* what, const std::string& reason) {
    throw Refusal("\"" + file.string() + "\" " + what + ":\n" + reason);
}

/// Signs the file and returns its new content.
std::string sign(const fs::path& file, const ProductStamp& stamp, const Choices& choices) {
    const fs::path signedFile = file.string() + ".signed";
    const CommandResult result =
        runCommand(choices.signCommand, {{"in", file.string()},
                                         {"out", signedFile.string()},
                                         {"name", stamp.name + " Installation"}});
    stopWhenAsked();  // Control-C ended the command too
    if (!result.good) {
        refuse(file, "cannot be signed; the sign command says", result.output);
    }
    // A command without "{out}" signs in place.
    if (choices.signCommand.find("{out}") != std::string::npos) {
        std::error_code failure;
        fs::rename(signedFile, file, failure);
        if (failure) {
            refuse(file, "was not signed: the sign command made no output; it says", result.output);
        }
    }
    std::string image = readInput(file.string());
    std::string code, name;
    if (const std::string damage = executableDamage(image); !damage.empty()) {
        refuse(file, "was damaged by the sign command", damage);
    }
    if (!isSigned(image) || !readStamp(image, code, name) || code != stamp.code ||
        name != stamp.name) {
        refuse(file, "holds no signature although the sign command ended well; it says",
               result.output);
    }
    if (!choices.verifyCommand.empty()) {
        const CommandResult verified =
            runCommand(choices.verifyCommand, {{"in", file.string()}, {"name", stamp.name}});
        if (!verified.good) {
            refuse(file, "has a signature that does not verify; the verify command says",
                   verified.output);
        }
    }
    return image;
}

ReleasedFile make(const std::string& installer, const ProductFacts& facts, const fs::path& folder,
                  const Choices& choices) {
    CProductData catalogue;
    const ProductStamp stamp = chooseStamp(catalogue, facts.code, "", choices.build);
    std::string image = stampedInstaller(installer, choices.installer, stamp);
    // The folder's name is the catalogue's code, as everywhere.
    const std::string path = releasedPath(facts.code);
    const fs::path file = folder / path;
    writeOutput(file.string(), image);
    if (!choices.signCommand.empty()) {
        image = sign(file, stamp, choices);
    }
    return {path, stamp.code, stamp.name,
            versionText(image, "ProductVersion").value_or(INSTALLER_BUILD_TEXT), sha256(image)};
}

std::string signatureSummary(const Choices& choices) {
    if (choices.signCommand.empty()) {
        return "UNSIGNED: no sign command was given, and Windows will warn of an unknown publisher";
    }
    return choices.verifyCommand.empty()
               ? "signed; signatures NOT VERIFIED, since no verify command was given"
               : "signed, each signature verified";
}

void report(const std::vector<ProductFacts>& products, const std::vector<ReleasedFile>& files,
            const Choices& choices, bool json) {
    Json document = {{"folder", choices.folder},
                     {"signed", !choices.signCommand.empty()},
                     {"signaturesVerified", !choices.verifyCommand.empty()},
                     {"installers", Json::array()}};
    std::vector<std::vector<std::string>> rows;
    for (std::size_t index = 0; index < files.size(); ++index) {
        const ReleasedFile& file = files[index];
        const bool silent = products[index].endsSilently;
        document["installers"].push_back({{"path", file.path},
                                          {"code", file.code},
                                          {"name", file.name},
                                          {"version", file.version},
                                          {"sha256", file.digest},
                                          {"endsSilently", silent}});
        rows.push_back({file.path, file.name});
        if (silent) {
            rows.back().emplace_back("(its run ends silently: nothing is installed)");
        }
    }
    if (json) {
        printJson(document);
        return;
    }
    std::cout << inColumns(rows) << '\n'
              << files.size() << " installers, " << signatureSummary(choices) << '\n';
}

bool isSameRelease(const fs::path& made, const fs::path& existing) {
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(made)) {
        if (!entry.is_directory() &&
            !isSameContent(entry.path(), existing / entry.path().lexically_relative(made))) {
            return false;
        }
    }
    return true;
}

void release(const Choices& choices, const Session& session) {
    if (!choices.verifyCommand.empty() && choices.signCommand.empty()) {
        throw CLI::ValidationError("--verify-command", "needs a --sign-command");
    }
    requireReplaceable(choices.folder);
    const std::string installer = readInput(choices.installer);
    const std::vector<ProductFacts> products = allProductFacts();
    std::vector<ReleasedFile> files(products.size());
    StagingFolder staging(choices.folder);
    const fs::path made = staging.path() / "release";
    inParallel(products.size(), choices.jobs, [&](std::size_t index) {
        files[index] = make(installer, products[index], made, choices);
    });
    std::string sums;
    for (const ReleasedFile& file : files) {
        sums += file.digest + "  " + file.path + '\n';
    }
    writeOutput((made / checksumsFile).string(), sums);
    writeOutput((made / billOfMaterialsFile).string(), billOfMaterials(files).dump(2) + '\n');
    // The same release again stays where it is: somebody may be using it.
    if (!isSameRelease(made, choices.folder)) {
        staging.put(made, choices.folder);
    }
    report(products, files, choices, session.json);
}

}  // namespace

void addReleaseCommand(CLI::App& app, Session& session) {
    CLI::App* const command =
        addCommand(app, session, "release",
                   "Makes the installers of all products, with checksums and a bill of materials");
    const auto choices = std::make_shared<Choices>();
    command
        ->add_option("OUT", choices->folder,
                     "The folder to make; an earlier release in it is replaced when all is done")
        ->required();
    command->add_option("--installer", choices->installer, "The built installer")
        ->capture_default_str();
    command->add_option("--build", choices->build,
                        "Product version for the version resources; else the installer's own");
    command->add_option(
        "--sign-command", choices->signCommand,
        "Signs an executable: any command, in which {in}, {out} and {name} are replaced; without "
        "{out} it signs in place");
    command->add_option("--verify-command", choices->verifyCommand,
                        "Verifies a signature: any command, in which {in} is replaced");
    command->add_option("--jobs", choices->jobs, "How many to make at a time")
        ->check(CLI::Range(1, 64))
        ->capture_default_str();
    command->callback([choices, &session] { release(*choices, session); });
}
