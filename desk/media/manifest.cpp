#include "desk/media/manifest.h"

#include <algorithm>
#include <sstream>

std::string asList(const Digests& digests) {
    std::string text;
    for (const auto& [path, digest] : digests) {
        text += digest + "  " + path + '\n';
    }
    return text;
}

std::set<std::string> filesBelow(const fs::path& folder, std::vector<FileProblem>& problems) {
    std::set<std::string> files;
    std::error_code failure;
    fs::recursive_directory_iterator entries(folder, failure);
    for (; !failure && entries != fs::recursive_directory_iterator(); entries.increment(failure)) {
        const std::string path = entries->path().lexically_relative(folder).generic_string();
        const fs::file_status status = entries->symlink_status();
        if (fs::is_regular_file(status)) {
            files.insert(path);
        } else if (fs::is_symlink(status)) {
            problems.push_back({path, "is a link"});
        } else if (!fs::is_directory(status)) {
            problems.push_back({path, "is no ordinary file"});
        } else if (path == ".installer-tool") {
            entries.disable_recursion_pending();
            problems.push_back(
                {path, "is what an unfinished run left; let it end or run it again"});
        } else if (fs::is_empty(entries->path(), failure)) {
            problems.push_back({path, "is an empty folder"});
        }
    }
    if (failure) {
        problems.push_back({"", "cannot be read: " + failure.message()});
    }
    return files;
}

std::vector<FileProblem> compareWithList(const fs::path& folder, const std::string& list) {
    std::vector<FileProblem> problems;
    Digests digests;
    try {
        std::istringstream lines(readInput(folder / list));
        for (std::string line; std::getline(lines, line);) {
            constexpr std::size_t digestSize = 64;
            if (line.size() < digestSize + 3 || line[digestSize] != ' ' ||
                !digests.emplace(line.substr(digestSize + 2), line.substr(0, digestSize)).second) {
                return {{list, inQuotes(folder / list) +
                                   ": a line is no checksum or names a file again: " + line}};
            }
        }
    } catch (const Refusal& reason) {
        return {{list, reason.what()}};
    }
    for (const std::string& file : filesBelow(folder, problems)) {
        const auto listed = digests.find(file);
        try {
            if (file == list) {
                continue;
            }
            if (listed == digests.end()) {
                problems.push_back({file, "does not stand in " + list});
            } else if (summarize(folder / file).digest != listed->second) {
                problems.push_back(
                    {file, "differs from its checksum in " + list + ": it was damaged or changed"});
            }
        } catch (const Refusal& reason) {
            problems.push_back({file, reason.what()});
        }
        digests.erase(file);
    }
    for (const FileProblem& problem : problems) {
        digests.erase(problem.file);
    }
    for (const auto& [file, digest] : digests) {
        problems.push_back({file, "is missing"});
    }
    return problems;
}

void requireReplaceable(const fs::path& folder, const std::string& list) {
    std::error_code failure;
    if (!fs::exists(fs::symlink_status(folder, failure))) {
        return;
    }
    if (fs::is_symlink(folder, failure) || !fs::is_directory(folder, failure)) {
        refuse(folder, "is a link or no folder, and is left alone; remove it or name another.");
    }
    const auto leaveOutOurs = [](std::vector<FileProblem>& problems) {
        std::erase_if(problems,
                      [](const FileProblem& problem) { return problem.file == ".installer-tool"; });
        return problems.empty();
    };
    std::vector<FileProblem> problems;
    if (filesBelow(folder, problems).empty() && leaveOutOurs(problems)) {
        return;
    }
    problems = compareWithList(folder, list);
    if (!leaveOutOurs(problems)) {
        refuse(folder,
               "holds something else than was made here, which is left alone; remove it "
               "or name another folder:\n  " +
                   joined(asLines(problems), "\n  "));
    }
}

std::vector<std::string> asLines(const std::vector<FileProblem>& problems) {
    std::vector<std::string> lines;
    std::ranges::transform(problems, std::back_inserter(lines), &FileProblem::asLine);
    return lines;
}
