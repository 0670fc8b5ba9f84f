#include "desk/page/story_page.h"

#include <algorithm>

#include "catalogue/build_number.h"
#include "desk/page/dry_run_text.h"
#include "desk/western_text.h"
#include "installed/installation_index.h"

namespace {

constexpr const char* styleSheet = R"css(
:root { --page: #f3f5f9; --card: #fff; --ink: #1a2233; --soft: #56617a; --line: #d4dae6;
  --accent: #1f57c3; --tint: #e8effc; --warn: #8a4b00; --warntint: #fff3df; --good: #14693b;
  --goodtint: #e3f5ea; --bar: #dfe5f0; --mono: ui-monospace, "DejaVu Sans Mono", monospace; }
@media (prefers-color-scheme: dark) {
  :root { --page: #10141d; --card: #1a202d; --ink: #e8ecf5; --soft: #a5b0c8; --line: #36405a;
    --accent: #86aefc; --tint: #22304f; --warn: #ffc579; --warntint: #3a2b14; --good: #83d7a7;
    --goodtint: #15321f; --bar: #2a3348; } }
* { box-sizing: border-box; }
html { scroll-padding-top: 4.5rem; }
body { margin: 0; background: var(--page); color: var(--ink);
  font: 15px/1.5 system-ui, "Segoe UI", "DejaVu Sans", sans-serif; }
header, main, footer { max-width: 1200px; margin: 0 auto; padding: 0 24px; }
header { padding-top: 32px; }
h1 { font-size: 30px; line-height: 1.2; margin: 0 0 6px; letter-spacing: -.01em; }
h2 { font-size: 21px; margin: 0; }
h3 { font-size: 13px; margin: 26px 0 10px; color: var(--soft); text-transform: uppercase;
  letter-spacing: .06em; }
.lead { color: var(--soft); margin: 0 0 18px; max-width: 75ch; }
.facts { display: flex; flex-wrap: wrap; gap: 10px; margin: 0 0 18px; padding: 0; list-style: none; }
.facts li { background: var(--card); border: 1px solid var(--line); border-radius: 8px;
  padding: 6px 12px; }
.facts b { color: var(--soft); font-weight: 500; margin-right: 6px; }
nav { position: sticky; top: 0; z-index: 1; background: var(--page);
  border-bottom: 1px solid var(--line); }
nav ul { max-width: 1200px; margin: 0 auto; padding: 10px 24px; display: flex; flex-wrap: wrap;
  gap: 6px; list-style: none; }
nav a { display: block; padding: 3px 9px; border-radius: 7px; color: var(--accent);
  text-decoration: none; background: var(--card); border: 1px solid var(--line);
  font: 600 13px var(--mono); }
nav a:hover, nav a:focus-visible { background: var(--tint); outline: 2px solid var(--accent); }
section { background: var(--card); border: 1px solid var(--line); border-radius: 14px;
  padding: 22px 24px 26px; margin: 22px 0; }
.head { display: flex; align-items: center; gap: 12px; }
.code { font: 700 15px var(--mono); background: var(--accent); color: var(--card);
  border-radius: 8px; padding: 4px 10px; }
.build { margin-left: auto; color: var(--soft); font: 13px var(--mono); white-space: pre-line; }
svg.road { display: block; width: 100%; height: auto; margin: 14px 0 0; }
.road text { fill: var(--ink); font: 600 13px system-ui, "Segoe UI", "DejaVu Sans", sans-serif; }
.road .small { fill: var(--soft); font-weight: 400; font-size: 12px; }
.road .way { stroke: var(--line); stroke-width: 4; fill: none; stroke-linecap: round; }
.road .stop { fill: var(--tint); stroke: var(--accent); stroke-width: 2; }
.road .start { fill: var(--accent); }
.road .number { fill: var(--accent); font-weight: 700; }
.road .end { fill: var(--goodtint); stroke: var(--good); stroke-width: 2; }
.road .none { fill: var(--warntint); stroke: var(--warn); stroke-width: 2; }
.note { background: var(--warntint); color: var(--warn); border-radius: 8px; padding: 8px 12px;
  margin: 12px 0 0; }
ol.steps { margin: 0; padding: 0; list-style: none; }
ol.steps > li { display: grid; grid-template-columns: 34px minmax(0, 1fr); margin: 0 0 14px; }
.ball { width: 26px; height: 26px; border-radius: 50%; background: var(--tint);
  color: var(--accent); font-weight: 700; font-size: 13px; display: grid; place-items: center; }
.pair { display: grid; grid-template-columns: minmax(0, 500px) minmax(0, 1fr); gap: 22px; }
.window { border: 1px solid var(--line); border-radius: 8px; overflow: hidden;
  background: var(--card); box-shadow: 0 6px 18px rgb(20 30 60 / .13); align-self: start; }
.bar { background: var(--bar); padding: 6px 12px; font-size: 13px; font-weight: 600; display: flex;
  gap: 10px; }
.bar span { margin-left: auto; color: var(--soft); }
.body { display: flex; gap: 14px; padding: 14px 16px; font-size: 14px; }
.body p { margin: 0 0 8px; white-space: pre-line; overflow-wrap: anywhere; }
.body svg { flex: none; width: 34px; height: 34px; }
.list { border: 1px solid var(--line); margin: 0 0 10px; padding: 4px 10px; list-style: none; }
.plain { margin: 0 0 8px; padding: 0 0 0 14px; list-style: none; }
.buttons { display: flex; justify-content: flex-end; flex-wrap: wrap; gap: 8px;
  padding: 10px 14px; background: var(--page); border-top: 1px solid var(--line); }
.buttons span { border: 1px solid var(--soft); border-radius: 5px; padding: 3px 16px;
  font-size: 13px; background: var(--card); }
.buttons span.first { border: 2px solid var(--accent); }
.answers { margin: 0; padding: 0; list-style: none; }
.answers > li { border-left: 4px solid var(--good); padding: 2px 0 2px 12px; margin: 0 0 12px; }
.answers > li.ends { border-color: var(--warn); }
.answers ol { margin: 6px 0 0; padding-left: 22px; }
code { font: 12.5px/1.5 var(--mono); overflow-wrap: anywhere; white-space: pre-wrap; }
.does code { display: block; background: var(--page); border: 1px solid var(--line);
  border-radius: 8px; padding: 7px 11px; margin: 3px 0 2px; }
.does span { color: var(--soft); font-size: 13.5px; }
.endings { display: grid; grid-template-columns: repeat(auto-fit, minmax(340px, 1fr)); gap: 16px; }
.ending { border: 1px solid var(--line); border-top: 4px solid var(--good); border-radius: 10px;
  padding: 12px 16px 14px; min-width: 0; }
.ending h4 { margin: 0 0 8px; font-size: 16px; }
table { border-collapse: collapse; width: 100%; }
th, td { text-align: left; vertical-align: top; padding: 4px 0; border-top: 1px solid var(--line);
  font: 13px/1.45 var(--mono); overflow-wrap: anywhere; }
th { color: var(--soft); font-weight: 500; width: 84px; }
details { margin-top: 10px; } summary { color: var(--accent); cursor: pointer; font-size: 14px; }
footer { color: var(--soft); padding-bottom: 40px; font-size: 13.5px; }
@media (max-width: 820px) { .pair { grid-template-columns: 1fr; } .build { display: none; } }
@media print { nav { display: none; } section { break-inside: avoid; } }
)css";

constexpr const char* warningIcon =
    R"(<svg viewBox="0 0 34 34" role="img" aria-label="Warning"><path d="M17 3 32 30H2Z" )"
    R"(fill="#ffcc33" stroke="#7a5600" stroke-width="1.6" stroke-linejoin="round"/>)"
    R"(<path d="M17 12v9M17 24.5v2" stroke="#3d2b00" stroke-width="3" stroke-linecap="round"/></svg>)";
constexpr const char* errorIcon =
    R"(<svg viewBox="0 0 34 34" role="img" aria-label="Error"><circle cx="17" cy="17" r="14" )"
    R"(fill="#c42b1c"/><path d="M12 12l10 10M22 12l-10 10" stroke="#fff" stroke-width="3" )"
    R"(stroke-linecap="round"/></svg>)";

std::string escapedUtf8(std::string_view text) {
    std::string html;
    for (const char character : text) {
        switch (character) {
            case '&':
                html += "&amp;";
                break;
            case '<':
                html += "&lt;";
                break;
            case '>':
                html += "&gt;";
                break;
            case '"':
                html += "&quot;";
                break;
            default:
                html += character;
        }
    }
    return html;
}

std::string escaped(std::string_view western) {
    return escapedUtf8(toUtf8(western));
}

std::string element(const std::string& tag, const std::string& content) {
    return '<' + tag + '>' + content + "</" + tag.substr(0, tag.find(' ')) + '>';
}

bool isDialog(const DryRunStep& step) {
    return step.step.kind == RunStep::Kind::Dialog;
}

std::string windowHtml(const ShownDialog& dialog) {
    std::string body;
    for (std::size_t index = 0; index < dialog.texts.size(); ++index) {
        body += element("p", escaped(dialog.texts[index]));
        if (index == 0 && !dialog.rows.empty()) {
            std::string rows;
            for (const std::string& row : dialog.rows) {
                rows += element("li", "\u2611 " + escaped(row));
            }
            body += element("ul class=\"list\"", rows) +
                    element("p", "\u2611 " + escaped(dialog.choices.front()));
        }
    }
    if (dialog.rows.empty() && !dialog.choices.empty()) {
        std::string choices;
        for (const std::string& choice : dialog.choices) {
            choices += element("li", (choices.empty() ? "\u25C9 " : "\u25CB ") + escaped(choice));
        }
        body += element("ul class=\"plain\"", choices);
    }
    std::string buttons;
    for (const std::string& button : dialog.buttons) {
        // The uninstall prompt has no default button.
        const bool isDefault = buttons.empty() && dialog.rows.empty();
        buttons += element(isDefault ? "span class=\"first\"" : "span", escaped(button));
    }
    const char* icon = !dialog.icon                           ? ""
                       : *dialog.icon == MessageIcon::Warning ? warningIcon
                                                              : errorIcon;
    return "<div class=\"window\" role=\"group\" aria-label=\"Dialog: " + escaped(dialog.title) +
           "\"><div class=\"bar\">" + escaped(dialog.title) +
           "<span aria-hidden=\"true\">\u2715</span></div><div class=\"body\">" + icon +
           element("div", body) + "</div>" + element("div class=\"buttons\"", buttons) + "</div>\n";
}

std::string answersHtml(const std::vector<DialogAnswer>& answers) {
    std::string list;
    for (const DialogAnswer& answer : answers) {
        std::string runs;
        for (const ProgramCall& command : answer.runs) {
            runs += element("li", element("code", escapedUtf8(shownCommand(command))));
        }
        list += element(answer.goesOn ? "li" : "li class=\"ends\"",
                        element("b", escaped(answer.button)) + "<br>" + escaped(answer.outcome) +
                            (runs.empty() ? "" : element("ol", runs)));
    }
    return element("ul class=\"answers\"", list);
}

std::string stepHtml(const DryRunStep& step) {
    if (isDialog(step)) {
        return element("div class=\"pair\"",
                       windowHtml(step.step.dialog) + answersHtml(step.answers));
    }
    std::string what;
    switch (step.step.kind) {
        case RunStep::Kind::Stop:
            what = "Stops" + element("code", escaped(step.step.program));
            break;
        case RunStep::Kind::Copy:
            what = "Copies" + element("code", escaped(step.step.program) + "\nto " +
                                                  escaped(step.step.target));
            break;
        default:
            what = "Runs, and waits for" +
                   element("code",
                           escapedUtf8(shownCommand({step.step.program, step.step.arguments})));
    }
    return element("div class=\"does\"", what + element("span", escaped(step.note)));
}

std::string endingHtml(const DryRunEnding& ending) {
    const std::string heading =
        element("h4", ending.choice.empty() ? "Without a question" : escaped(ending.choice));
    if (ending.message) {
        return element("div class=\"ending\"", heading + windowHtml(*ending.message));
    }
    std::string rows;
    for (const auto& [name, value] : parameterFields(ending.setup.arguments)) {
        if (!value.empty()) {
            rows += element(
                "tr", element("th scope=\"row\"", escaped(name)) + element("td", escaped(value)));
        }
    }
    std::string folder;
    if (ending.programFolderNumber > 1) {
        folder =
            element("p class=\"note\"", "The program folder gets the number " +
                                            std::to_string(ending.programFolderNumber) +
                                            ": the names before it are taken on this machine.");
    }
    return element("div class=\"ending\"",
                   heading + element("table", rows) + folder + "<details><summary>The whole call" +
                       "</summary>" + element("code", escapedUtf8(shownCommand(ending.setup))) +
                       "</details>") +
           '\n';
}

/// A place on the road: a dialog, or steps that belong together.
struct Stop {
    std::string label;
    std::string detail;
};

std::vector<Stop> stopsOf(const DryRun& story) {
    std::vector<Stop> stops;
    for (std::size_t index = 0; index < story.steps.size(); ++index) {
        const DryRunStep& step = story.steps[index];
        if (!isDialog(step)) {
            std::size_t end = index;
            while (end + 1 < story.steps.size() && !isDialog(story.steps[end + 1])) {
                ++end;
            }
            const bool drivers = step.step.kind == RunStep::Kind::Run;
            stops.push_back({drivers ? "Drivers" : "Older viewers",
                             drivers ? "unpacked, installed" : "stopped, removed"});
            index = end;
        } else if (step.step.dialog.icon) {
            const bool asks = step.step.dialog.buttons.size() > 1;
            stops.push_back({asks ? "Windows" : "Message", asks ? "asks first" : "and the end"});
        } else if (!step.step.dialog.rows.empty()) {
            stops.push_back({"Older versions", std::to_string(step.step.dialog.rows.size()) +
                                                   " offered for removal"});
        } else {
            stops.push_back({"Install Product",
                             step.step.dialog.choices.size() == 1
                                 ? "one choice"
                                 : std::to_string(step.step.dialog.choices.size()) + " choices"});
        }
    }
    return stops;
}

std::string svgText(int x, int y, const char* attributes, const std::string& text) {
    return "<text x=\"" + std::to_string(x) + "\" y=\"" + std::to_string(y) + "\" " + attributes +
           '>' + escaped(text) + "</text>";
}

/// The road from the start to the ends, drawn.
std::string roadHtml(const DryRun& story) {
    constexpr int width = 1150, endWidth = 350, rowHeight = 46, top = 16;
    const std::vector<Stop> stops = stopsOf(story);
    const int ends = std::max(1, static_cast<int>(story.endings.size()));
    const int height = std::max(96, ends * rowHeight + 2 * top);
    const int middle = height / 2 - (ends == 1 ? 10 : 0);
    const int endLeft = width - endWidth;
    const int count = static_cast<int>(stops.size());
    const int gap = std::min(200, (endLeft - 100) / (count + 1));
    const int last = 40 + gap * count;
    const auto number = [](int value) { return std::to_string(value); };

    std::string drawn =
        "<path class=\"way\" d=\"M40 " + number(middle) + "H" + number(last) + "\"/>";
    std::string endsDrawn, told = "The road: start";
    for (int index = 0; index < ends; ++index) {
        const bool early = story.endings.empty();
        const DryRunEnding* const ending =
            early ? nullptr : &story.endings[static_cast<std::size_t>(index)];
        const bool works = !early && !ending->message;
        const int y = ends == 1 ? middle : top + index * rowHeight + rowHeight / 2;
        const int bend = (last + endLeft) / 2;
        drawn += "<path class=\"way\" d=\"M" + number(last) + ' ' + number(middle) + "C" +
                 number(bend) + ' ' + number(middle) + ' ' + number(bend) + ' ' + number(y) + ' ' +
                 number(endLeft) + ' ' + number(y) + "\"/>";
        endsDrawn += "<rect class=\"" + std::string(works ? "end" : "none") + "\" x=\"" +
                     number(endLeft) + "\" y=\"" + number(y - 19) + "\" width=\"" +
                     number(endWidth - 2) + "\" height=\"38\" rx=\"19\"/>";
        std::string first = "Ends here", second = "nothing is installed";
        if (ending != nullptr) {
            first = ending->choice.empty() ? "Setup" : ending->choice;
            second = works ? ending->programFolder : "ends with a message";
        }
        constexpr std::size_t longest = 50;
        if (second.size() > longest) {
            second = second.substr(0, longest - 3) + "...";
        }
        endsDrawn += svgText(endLeft + 18, y - 3, "", first) +
                     svgText(endLeft + 18, y + 12, "class=\"small\"", second);
    }
    drawn += "<circle class=\"start\" cx=\"40\" cy=\"" + number(middle) + "\" r=\"9\"/>" +
             svgText(40, middle + 36, "text-anchor=\"middle\"", "Start");
    for (int index = 0; index < count; ++index) {
        const Stop& stop = stops[static_cast<std::size_t>(index)];
        const int x = 40 + gap * (index + 1);
        drawn +=
            "<circle class=\"stop\" cx=\"" + number(x) + "\" cy=\"" + number(middle) +
            "\" r=\"16\"/>" +
            svgText(x, middle + 5, "class=\"number\" text-anchor=\"middle\"", number(index + 1)) +
            svgText(x, middle + 36, "text-anchor=\"middle\"", stop.label) +
            svgText(x, middle + 52, "class=\"small\" text-anchor=\"middle\"", stop.detail);
        told += "; " + stop.label + ", " + stop.detail;
    }
    told += story.endings.empty() ? "; the run ends" : "; then " + number(ends) + " ending(s)";
    return "<svg class=\"road\" viewBox=\"0 0 " + number(width) + ' ' + number(height) +
           "\" role=\"img\" aria-label=\"" + escaped(told) + "\">" + drawn + endsDrawn + "</svg>\n";
}

std::string stepsHtml(const DryRun& story) {
    std::string list;
    int number = 0;
    bool inGroup = false;
    for (const DryRunStep& step : story.steps) {
        const bool follows = inGroup && !isDialog(step);
        inGroup = !isDialog(step);
        number += follows ? 0 : 1;
        const std::string ball =
            follows ? "<div></div>" : element("div class=\"ball\"", std::to_string(number));
        list += element("li", ball + stepHtml(step)) + '\n';
    }
    return list.empty() ? "" : element("h3", "On the way") + element("ol class=\"steps\"", list);
}

std::string storyHtml(const DryRun& story) {
    std::string html = "<section id=\"p" + escaped(story.productCode) + "\" aria-labelledby=\"h" +
                       escaped(story.productCode) + "\"><div class=\"head\">" +
                       element("span class=\"code\"", escaped(story.productCode)) + "<h2 id=\"h" +
                       escaped(story.productCode) + "\">" + escaped(story.productName) +
                       "</h2><span class=\"build\">" + escaped(story.build) + "</span></div>\n" +
                       roadHtml(story) + stepsHtml(story);
    if (!story.earlyEnd.empty()) {
        html += element("p class=\"note\"", escaped(story.earlyEnd));
    }
    std::string endings;
    for (const DryRunEnding& ending : story.endings) {
        endings += endingHtml(ending);
    }
    if (!endings.empty()) {
        html += element("h3", "What the setup utility is handed") +
                element("div class=\"endings\"", endings);
    }
    for (const std::string& note : story.notes) {
        html += element("p class=\"note\"", escaped(note));
    }
    return html + "</section>\n";
}

std::string machineHtml(const DryRun& story, const MachineDescription& machine) {
    DescribedMachine described;
    described.registry.keys = machine.registry;
    std::vector<InstalledProduct> products;
    std::ignore = findInstalledProducts(*described.localMachine(), "", products);
    InstallationIndex index(described);
    index.load(true);
    const std::size_t installations = index.records.size();
    const auto fact = [](const char* name, const std::string& value) {
        return element("li", element("b", name) + escapedUtf8(value));
    };
    return element(
        "ul class=\"facts\"",
        fact("Machine", machine.windows) + fact("Reports", systemInWords(story)) +
            fact("User", machine.administrator ? "an administrator" : "no administrator") +
            fact("Uninstall list", std::to_string(products.size()) + " that a run could report") +
            fact("Maker's tree", std::to_string(installations) + " installations"));
}

}  // namespace

std::string storyPage(const std::vector<DryRun>& stories, const MachineDescription& machine) {
    std::string links, sections;
    for (const DryRun& story : stories) {
        links += element("li", "<a href=\"#p" + escaped(story.productCode) + "\" title=\"" +
                                   escaped(story.productName) + "\">" + escaped(story.productCode) +
                                   "</a>");
        sections += storyHtml(story);
    }
    return "<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"utf-8\">\n"
           "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
           "<title>What the installers do</title>\n" +
           element("style", styleSheet) + "</head><body>\n<header>" +
           element("h1", "What the installers do") +
           element(
               "p class=\"lead\"",
               "Every run as it would go on the machine below: its dialogs, what it removes and "
               "installs, and what the setup utility is handed at the end.") +
           (stories.empty() ? "" : machineHtml(stories.front(), machine)) + "</header>\n" +
           element("nav aria-label=\"Products\"", element("ul", links)) +
           element("main", sections) +
           element("footer", "Told by installer-tool " INSTALLER_BUILD_TEXT
                             " from the installers' own decisions.") +
           "</body></html>\n";
}
