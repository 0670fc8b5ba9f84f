// Makes the installers of all products.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <thread>

#include "desk/commands/command.h"
#include "desk/executables/stamp_image.h"
#include "desk/media/installer_maker.h"
#include "desk/media/product_facts.h"
#include "desk/media/release_folder.h"
#include "desk/western_text.h"

namespace {

struct Choices {
    std::string folder;
    std::string installer = "build/release/installer.exe";
    std::string build;
    SigningChoices signing;
    unsigned jobs = std::max(1U, std::thread::hardware_concurrency());
};

Json describe(const InstallerOrder& order, const ProductFacts& facts, const fs::path& folder) {
    const std::string image = readInput(folder / order.path);
    return {{"path", order.path},
            {"code", order.stamp.code},
            {"name", toUtf8(order.stamp.name)},
            {"version", versionText(image, "ProductVersion").value_or("none")},
            {"sha256", sha256(image)},
            {"endsSilently", facts.endsSilently}};
}

void report(const Json& files, const ReleaseReport& made, const Choices& choices,
            const Session& session) {
    const bool isSigned = made.signatures != 0;
    std::vector<std::vector<std::string>> rows;
    for (const Json& file : files) {
        rows.push_back({file["path"], file["name"], silentMark(file["endsSilently"])});
    }
    printResult(session,
                {{"folder", choices.folder},
                 {"signed", isSigned},
                 {"signatures", made.signers},
                 {"files", files}},
                inColumns(rows) + '\n' + std::to_string(files.size()) + " installers, " +
                    (isSigned ? joined(made.signers)
                              : "UNSIGNED: no sign command was given, and Windows will warn of an "
                                "unknown publisher") +
                    '\n');
}

void release(const Choices& choices, const Session& session) {
    requireReplaceable(fs::weakly_canonical(choices.folder), checksumsFile);
    const std::vector<ProductFacts> products = productFacts();
    const CProductData catalogue;
    std::vector<InstallerOrder> orders;
    for (const ProductFacts& facts : products) {
        if (choices.signing.command.empty()) {
            requireUnsigned(fs::path(choices.folder) / releasedPath(facts.code));
        }
        orders.push_back({releasedPath(facts.code), choices.installer,
                          chooseStamp(catalogue, facts.code, "", choices.build)});
    }
    OutputFolder output(choices.folder);
    const fs::path made = makeInstallers(orders, choices.signing, choices.jobs, output);
    Json files = Json::array();
    Digests digests;
    std::vector<std::string> names = {checksumsFile, billOfMaterialsFile, noticesFile};
    for (std::size_t index = 0; index < orders.size(); ++index) {
        const InstallerOrder& order = orders[index];
        files.push_back(describe(order, products[index], made));
        digests[order.path] = files.back()["sha256"];
        names.push_back(folderOf(order.stamp.code));
        makeFolder(output.staging() / names.back());
        fs::copy(made / order.path, output.staging() / order.path);
    }
    for (const auto& [name, content] :
         {std::pair(billOfMaterialsFile, billOfMaterials(files).dump(2) + '\n'),
          std::pair(noticesFile, thirdPartyNotices())}) {
        writeOutput(output.staging() / name, content);
        digests[name] = sha256(content);
    }
    writeOutput(output.staging() / checksumsFile, asList(digests));
    const ReleaseReport examined =
        examineRelease(output.staging(), choices.build, choices.signing.verification);
    if (!examined.problems.empty()) {
        throw Refusal("The release would not be as it should be; nothing was changed. " +
                      asLine(examined.problems.front()));
    }
    // The same release again stays where it is: somebody may be using it.
    const bool isSame = readWholeFile(output.path() / checksumsFile) == asList(digests);
    output.put(isSame ? std::vector<std::string>() : names);
    report(files, examined, choices, session);
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
    command->add_option("--jobs", choices->jobs, "How many to make at a time")
        ->check(CLI::Range(1, 64))
        ->capture_default_str();
    addSigningOptions(*command, choices->signing);
    command->callback([choices, &session] { release(*choices, session); });
}
