#include "desk/page/page.h"

#include "desk/computer/dry_run.h"
#include "platform/ansi_text.h"

namespace {

// page.html, which CMake puts between quotes.
constexpr std::string_view pageTemplate =
#include "page.inc"
    ;

constexpr std::string_view sampleStart = "<script type=\"application/json\" id=\"runs\">";
constexpr std::string_view sampleEnd = "</script>";
constexpr std::size_t reportAt = pageTemplate.find(sampleStart) + sampleStart.size();
constexpr std::size_t restAt = pageTemplate.find(sampleEnd, reportAt);
static_assert(reportAt < restAt && restAt < pageTemplate.size());

}  // namespace

std::string pageOf(const Json& report) {
    std::string text = report.dump(-1, ' ', false, Json::error_handler_t::replace);
    hideArchiveKeys(text);
    std::string page(pageTemplate.substr(0, reportAt));
    // Or a text could end the script element that it stands in.
    page += replaceAll(text, "<", "\\u003c", false);
    return page.append(pageTemplate.substr(restAt));
}
