#include "desk/media/media_plan.h"

#include <algorithm>
#include <cstring>

#include "catalogue/cipher.h"
#include "desk/media/media_folder.h"
#include "desk/media/output_folder.h"
#include "desk/western_text.h"
#include "platform/ansi_text.h"

namespace {

/// Collects what is wrong with the media of one product.
class Planner {
  public:
    Planner(MediaPlan& media, std::vector<std::string>& problems)
        : media(media), problems(problems) {}

    /// Runs one step; what it refuses is a problem.
    template <class Step>
    void step(Step work) {
        try {
            work();
        } catch (const Refusal& reason) {
            problem(reason.what());
        }
    }
    void problem(const std::string& what) {
        if (std::ranges::count(problems, what) == 0) {
            problems.push_back(what);
        }
    }

    void addBytes(const std::string& name, const std::string& bytes) {
        add({name, bytes, "", sha256(bytes)});
    }
    void addSource(const std::string& name, const fs::path& source) {
        step([&] {
            const FileSummary summary = summarize(source);
            if (const std::string damage = damageOf(source, summary); !damage.empty()) {
                problem(inQuotes(source) + ": " + damage + '.');
            }
            add({name, "", source, summary.digest});
        });
    }
    /// The folder's files, with the folders that they lie in.
    void addContents(const fs::path& folder) {
        std::vector<FileProblem> found;
        for (const std::string& file : filesBelow(folder, found)) {
            addContent(folder, file);
        }
        for (const FileProblem& one : found) {
            // A link to a file stands for the file.
            if (!one.file.empty() && fs::is_regular_file(folder / one.file)) {
                addContent(folder, one.file);
            } else {
                problem(inQuotes(folder / one.file) + ", of the contents of product " +
                        media.facts.code + ", " + one.what + '.');
            }
        }
    }

  private:
    void addContent(const fs::path& folder, const std::string& name) {
        const bool isPlain = std::ranges::none_of(name, [](char character) {
            return (character >= 0 && character < ' ') ||
                   std::strchr("\\:*?\"<>|", character) != nullptr;
        });
        if (!isPlain) {
            problem(inQuotes(folder / name) + " has a name that Windows does not allow.");
        }
        addSource(name, folder / name);
    }
    /// The name, in any letter case, must not be taken.
    void add(PlannedFile file) {
        for (const PlannedFile& other : media.files) {
            if (equalIgnoringCase(other.name, file.name)) {
                problem(inQuotes(file.name) + " of product " + media.facts.code +
                        " comes twice: from " + inQuotes(file.source) + " and " +
                        (other.source.empty() ? "made here" : inQuotes(other.source)) +
                        "; leave one out.");
            }
        }
        media.files.push_back(std::move(file));
    }

    MediaPlan& media;
    std::vector<std::string>& problems;
};

void addLauncher(Planner& planner, const MediaPlan& media) {
    // The folder's name ends in a backslash; a second one keeps it from taking the quote with it.
    planner.addBytes("install.cmd", "@echo off\r\nstart \"\" \"%~dp0" + media.installerName +
                                        "\" -dir \"%~dp0\\\"\r\n");
    planner.addBytes("autorun.inf",
                     "[autorun]\r\nshellexecute=install.cmd\r\nicon=" + media.installerName +
                         "\r\naction=Install " + media.stamp.name +
                         "\r\nlabel=" + media.stamp.name + "\r\n");
}

}  // namespace

MediaPlan planMedia(const LayoutDescription& description, const ProductFacts& facts,
                    std::vector<std::string>& problems) {
    MediaPlan media{facts, "", {}, {}};
    Planner planner(media, problems);
    planner.step([&] { media.installerName = description.installerName(facts.code); });
    planner.step([&] {
        const std::string build = description.text(facts.code, "build");
        media.stamp = chooseStamp(facts.code,
                                  requireWestern(description.text(facts.code, "name", "")), build);
    });
    planner.step([&] {
        const std::string data =
            std::string(versionSectionHeader) + "\r\nVersion Number=" + media.stamp.build + "\r\n";
        const bool enciphered = description.isEnciphered(facts.code);
        planner.addBytes(enciphered ? "ProductData.inx" : "ProductData.ini",
                         enciphered ? encipher(data) : data);
    });
    for (const std::string& file : facts.files) {
        planner.step([&] { planner.addSource(file, description.source(facts.code, file)); });
    }
    if (description.has(facts.code, "launcher")) {
        addLauncher(planner, media);
    }
    planner.step([&] {
        if (description.has(facts.code, "contents")) {
            planner.addContents(description.path(facts.code, "contents"));
        }
    });
    return media;
}

void addInstaller(MediaPlan& media, const fs::path& source, std::vector<std::string>& problems) {
    Planner(media, problems).addSource(media.installerName, source);
}

std::string manifestOf(const MediaPlan& media) {
    Digests digests;
    for (const PlannedFile& file : media.files) {
        digests[file.name] = file.digest;
    }
    return asList(digests);
}

void makeMedia(const MediaPlan& media, const fs::path& folder, bool links) {
    for (const PlannedFile& file : media.files) {
        stopWhenAsked();
        const fs::path target = folder / file.name;
        if (file.source.empty()) {
            writeOutput(target, file.bytes);
            continue;
        }
        makeFolder(target.parent_path());
        std::error_code failure;
        if (links) {
            // A link of a link would not be a file of its own right.
            fs::create_hard_link(fs::canonical(file.source), target, failure);
        }
        if (!links || failure) {
            fs::copy_file(file.source, target, failure);
        }
        if (failure) {
            refuse(file.source,
                   "cannot be copied to " + inQuotes(target) + ": " + failure.message() + '.');
        }
    }
    writeOutput(folder / manifestFile, manifestOf(media));
}
