#include "desk/media/installer_maker.h"

#include <algorithm>
#include <atomic>
#include <future>

#include "desk/western_text.h"

namespace {

/// Calls `work` for each index below `count` from several threads. Throws what a failing call
/// threw, once all have come to rest.
template <class Work>
void inParallel(std::size_t count, unsigned jobs, Work work) {
    std::atomic<std::size_t> next = 0;
    const auto run = [&] {
        for (std::size_t index; (index = next++) < count;) {
            try {
                stopWhenAsked();
                work(index);
            } catch (...) {
                next = count;
                throw;
            }
        }
    };
    std::vector<std::future<void>> runs(jobs);
    std::generate(runs.begin(), runs.end(), [&run] { return std::async(std::launch::async, run); });
    for (std::future<void>& one : runs) {
        one.get();
    }
}

}  // namespace

fs::path makeInstallers(const std::vector<InstallerOrder>& orders, const SigningChoices& signing,
                        OutputFolder& output) {
    std::vector<std::string> images;
    std::string settings = signing.command + '\n' + signing.timestampCommand + '\n';
    for (const InstallerOrder& order : orders) {
        images.push_back(stampedInstaller(order.installer, order.stamp));
        settings += order.path + ' ' + sha256(images.back()) + '\n';
    }
    fs::path folder = output.resumable(sha256(settings));
    std::atomic<std::size_t> kept = 0;
    try {
        inParallel(orders.size(), signing.jobs, [&](std::size_t index) {
            const fs::path file = folder / orders[index].path;
            if (signing.command.empty()) {
                writeOutput(file, images[index]);
                return;
            }
            if (!fs::exists(file)) {
                const std::string unfinished = file.string() + ".unsigned.exe";
                writeOutput(unfinished, images[index]);
                sign(unfinished, toUtf8(orders[index].stamp.name) + " Installation", signing);
                fs::rename(unfinished, file);
            }
            output.keepOnFailure();
            ++kept;
        });
    } catch (const Refusal& reason) {
        if (kept == 0) {
            throw;
        }
        throw Refusal(std::string(reason.what()) + "\n" + std::to_string(kept) + " of " +
                      std::to_string(orders.size()) +
                      " installers are signed and kept; the same command goes on from there.");
    }
    return folder;
}
