#include "installed/installed_product.h"

#include <vector>

#include "platform/version_number.h"

namespace {

// Kept: the oldest generation of the family stays out of the prompt.
constexpr int newestUnreported = 10;

}  // namespace

bool isReportedVersion(std::string_view displayVersion) {
    std::vector<int> numbers;
    return parseVersion(displayVersion, numbers) && numbers.front() > newestUnreported;
}
