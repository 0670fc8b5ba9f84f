// Makes the installers of all products.
#include "desk/commands/command.h"
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
};

/// Lays the installers that were made into the release's folder; tells of each.
Json takeInstallers(const std::vector<InstallerOrder>& orders, const fs::path& made,
                    const fs::path& folder) {
    Json files = Json::array();
    for (const InstallerOrder& order : orders) {
        const fs::path file = made / order.path, target = folder / order.path;
        makeFolder(target.parent_path());
        fs::copy(file, target);
        const std::string image = readInput(file), code = order.stamp.code;
        files.push_back({{"path", order.path},
                         {"code", code},
                         {"name", toUtf8(order.stamp.name)},
                         {"version", versionText(image, "ProductVersion").value_or("none")},
                         {"sha256", sha256(image)},
                         {"endsSilently", productFacts({code}).front().endsSilently}});
    }
    return files;
}

/// Lays what a release has beside the installers into its folder; returns its list of checksums.
std::string addLists(const Json& files, const fs::path& folder) {
    Digests digests;
    for (const Json& file : files) {
        digests[file["path"]] = file["sha256"];
    }
    for (const auto& [name, content] :
         {std::pair(billOfMaterialsFile, billOfMaterials(files).dump(2) + '\n'),
          std::pair(noticesFile, thirdPartyNotices())}) {
        writeOutput(folder / name, content);
        digests[name] = sha256(content);
    }
    writeOutput(folder / checksumsFile, asList(digests));
    return asList(digests);
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
    std::vector<InstallerOrder> orders;
    std::vector<std::string> names = {checksumsFile, billOfMaterialsFile, noticesFile};
    for (const ProductFacts& facts : productFacts()) {
        const std::string path = releasedPath(facts.code);
        if (choices.signing.command.empty()) {
            requireUnsigned(fs::path(choices.folder) / path);
        }
        orders.push_back({path, choices.installer, chooseStamp(facts.code, "", choices.build)});
        names.push_back(folderOf(facts.code));
    }
    OutputFolder output(choices.folder);
    const fs::path made = makeInstallers(orders, choices.signing, output);
    const Json files = takeInstallers(orders, made, output.staging());
    const std::string checksums = addLists(files, output.staging());
    const ReleaseReport examined =
        examineRelease(output.staging(), choices.build, choices.signing.verification);
    if (!examined.problems.empty()) {
        throw Refusal("The release would not be as it should be; nothing was changed. " +
                      examined.problems.front().asLine());
    }
    // The same release again stays where it is: somebody may be using it.
    const bool isSame = readWholeFile(output.path() / checksumsFile) == checksums;
    output.put(isSame ? std::vector<std::string>() : names);
    report(files, examined, choices, session);
}

}  // namespace

void addReleaseOptions(CLI::App& command, Session& session) {
    const auto choices = std::make_shared<Choices>();
    command
        .add_option("OUT", choices->folder,
                    "The folder to make; an earlier release in it is replaced when all is done")
        ->required();
    command.add_option("--installer", choices->installer, "The built installer")
        ->capture_default_str();
    command.add_option("--build", choices->build,
                       "Product version for the version resources; else the installer's own");
    addSigningOptions(command, choices->signing, "How many to make at a time");
    command.callback([choices, &session] { release(*choices, session); });
}
