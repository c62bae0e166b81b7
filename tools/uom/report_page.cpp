#include "report_page.h"

#include <algorithm>

#include "class_names.h"
#include "library.h"
#include "text.h"

namespace {

constexpr const char *STYLE = R"(
:root { color-scheme: light dark; --line: #8885; --faint: #8881; --mark: #06c; }
@media (prefers-color-scheme: dark) { :root { --mark: #6bf; } }
* { box-sizing: border-box; }
body { margin: 0 auto; max-width: 110rem; padding: 0 1rem 4rem; font: 16px/1.45 system-ui, sans-serif; }
header { position: sticky; top: 0; z-index: 2; display: flex; flex-wrap: wrap; gap: .5rem 1.2rem; align-items: center;
  padding: .7rem 0; background: Canvas; border-bottom: 1px solid var(--line); }
h1 { margin: 0; font-size: 1.2rem; }
h2 { margin: 2.2rem 0 .6rem; scroll-margin-top: 8rem; }
h3 { margin: 0; font-size: 1rem; }
nav { display: flex; gap: .9rem; }
a { color: var(--mark); }
input { flex: 1 1 14rem; min-width: 0; padding: .45rem .7rem; font: inherit; border: 1px solid var(--line);
  border-radius: .4rem; }
p { margin: .3rem 0; max-width: 60rem; }
.classes { columns: 34rem; column-gap: 1.5rem; }
article { break-inside: avoid-column; margin: 0 0 1rem; padding: .7rem .9rem; border: 1px solid var(--line);
  border-radius: .5rem; scroll-margin-top: 8rem; }
article p { font-size: .9rem; opacity: .85; }
.wide { overflow: auto; max-height: 85vh; border: 1px solid var(--line); border-radius: .5rem; }
article .wide { max-height: none; border: 0; }
table { border-collapse: collapse; width: 100%; font-size: .9rem; }
th, td { padding: .22rem .6rem .22rem 0; text-align: left; vertical-align: top; border-bottom: 1px solid var(--faint); }
.wide > table th, .wide > table td { padding-left: .3rem; }
.number { text-align: right; font-variant-numeric: tabular-nums; white-space: nowrap; }
td.unit { white-space: nowrap; font-weight: 600; }
.slates thead th { position: sticky; top: 0; background: Canvas; }
.slates th:first-child { position: sticky; left: 0; background: Canvas; }
.slates td { white-space: nowrap; }
[hidden] { display: none; }
@media print {
  header { position: static; } input, nav { display: none; }
  body { max-width: none; padding: 0; font-size: 10pt; }
  .wide { overflow: visible; max-height: none; border: 0; }
  .slates table { font-size: 6pt; } .slates td { white-space: normal; overflow-wrap: anywhere; }
  tr, article { break-inside: avoid; } thead { display: table-header-group; }
})";

// Words are looked for in each row, and in the heads of classes, whose rows are then all shown.
constexpr const char *SCRIPT = R"(
const field = document.querySelector('input'), note = document.querySelector('output');
const textOf = part => part.textContent.toLowerCase();
const parts = [...document.querySelectorAll('article')].map(article => ({ article, text: textOf(article.firstElementChild),
  rows: [...article.querySelectorAll('tbody tr')].map(row => ({ row, text: textOf(row) })) }));
const rows = [...document.querySelectorAll('section > .wide tbody tr')].map(row => ({ row, text: textOf(row) }));
field.addEventListener('input', () => {
  const words = field.value.toLowerCase().split(/\s+/).filter(Boolean);
  const fits = text => words.every(word => text.includes(word));
  let found = 0;
  for (const part of parts) {
    const whole = fits(part.text);
    let shown = whole ? 1 : 0;
    for (const { row, text } of part.rows) {
      row.hidden = !whole && !fits(text);
      shown += row.hidden ? 0 : 1;
    }
    part.article.hidden = !shown;
    found += shown;
  }
  for (const { row, text } of rows) {
    row.hidden = !fits(text);
    found += row.hidden ? 0 : 1;
  }
  note.textContent = words.length ? found + ' found' : '';
});)";

std::string escaped(const std::string &text) {
    std::string html;
    for (const char c : toUtf8(text))
        switch (c) {
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
            html += static_cast<unsigned char>(c) < ' ' ? ' ' : c;
        }
    return html;
}

std::string cell(const std::string &text, const char *kind = nullptr) {
    return (kind ? "<td class=" + std::string(kind) + ">" : "<td>") + escaped(text) + "</td>";
}

std::string listed(const std::vector<std::string> &texts) {
    std::string list;
    for (const std::string &text : texts)
        list += (list.empty() ? "" : ", ") + text;
    return list;
}

// --- classes

void writeUnits(std::ostream &out, const std::vector<uom::UnitEntry> &units) {
    const bool offsets = std::any_of(units.begin(), units.end(), [](const auto &unit) { return unit.offset != 0.0; });
    out << "<div class=wide><table><thead><tr><th>Unit</th><th>Description</th><th class=number>Factor</th>"
        << (offsets ? "<th class=number>Offset</th>" : "") << "</tr></thead><tbody>\n";
    for (const uom::UnitEntry &unit : units)
        out << "<tr>" << cell(unit.token, "unit") << cell(unit.description)
            << cell(shortestNumber(unit.factor), "number")
            << (unit.offset != 0.0 ? cell(shortestNumber(unit.offset), "number") : "") << "</tr>\n";
    out << "</tbody></table></div>";
}

void writeClass(std::ostream &out, const uom::ClassEntry &entry) {
    const std::string components = componentsOf(entry.number);
    out << "<article id=\"class-" << entry.number << "\"><div><h3>" << escaped(entry.token) << "</h3><p>"
        << escaped(entry.longName);
    if (components.empty()) {
        out << "</p></div>\n";
        writeUnits(out, uom::units(entry.number));
    } else {
        const std::string offered = listed(uom::choices(entry.token));
        out << " = " << escaped(components) << "</p>";
        if (!offered.empty())
            out << "<p>" << escaped(offered) << "</p>";
        out << "</div>";
    }
    out << "</article>\n";
}

// --- slates

std::vector<uom::SlateEntry> shownSlates() {
    std::vector<uom::SlateEntry> shown;
    for (const uom::SlateEntry &slate : uom::slates())
        if (statedDefault(slate.name, "isHidden") != "1")
            shown.push_back(slate);
    return shown;
}

void writeSlates(std::ostream &out, const std::vector<uom::ClassEntry> &classes) {
    const std::vector<uom::SlateEntry> slates = shownSlates();
    std::vector<std::vector<uom::DefaultEntry>> columns;
    out << "<section class=slates><h2 id=slates>Slates</h2>\n<p>What a quantity is shown in where a slate is chosen, "
           "and the atmospheric pressure of its gauge pressures in kPa.</p>\n<div class=wide><table><thead><tr>"
           "<th>Class</th>";
    for (const uom::SlateEntry &slate : slates) {
        out << "<th>" << escaped(slate.name) << "</th>";
        columns.push_back(uom::defaults(slate.name));
    }
    out << "</tr></thead><tbody>\n<tr><th>Atmosphere</th>";
    for (const uom::SlateEntry &slate : slates)
        out << cell(statedDefault(slate.name, "GaugePresBasis"));
    out << "</tr>\n";
    for (size_t i = 0; i < classes.size(); ++i) {
        out << "<tr><th>" << escaped(classes[i].token) << "</th>";
        for (const auto &column : columns)
            out << cell(column.at(i).units);
        out << "</tr>\n";
    }
    out << "</tbody></table></div></section>\n";
}

void writeAliases(std::ostream &out) {
    out << "<section><h2 id=aliases>Aliases</h2>\n<p>What is read beside the units themselves; with classes, only "
           "there.</p>\n<div class=wide><table><thead><tr><th>Alias</th><th>Units</th><th>Classes</th></tr></thead>"
           "<tbody>\n";
    const std::vector<uom::Alias> aliases = uom::aliases();
    for (auto alias = aliases.rbegin(); alias != aliases.rend(); ++alias)
        out << "<tr>" << cell(alias->name, "unit") << cell(alias->units) << cell(alias->classTokens) << "</tr>\n";
    out << "</tbody></table></div></section>\n";
}

} // namespace

void writePage(std::ostream &out) {
    const std::vector<uom::ClassEntry> classes = uom::classes();
    out << "<!DOCTYPE html>\n<html lang=en><head><meta charset=utf-8>\n"
           "<meta name=viewport content=\"width=device-width, initial-scale=1\">\n<title>Units of measure</title>\n"
        << "<style>" << STYLE << "\n</style></head>\n<body><header><h1>Units of measure</h1>\n"
        << "<nav><a href=\"#classes\">Classes</a> <a href=\"#slates\">Slates</a> <a "
           "href=\"#aliases\">Aliases</a></nav>\n"
        << "<input type=search placeholder=\"Class, unit or description\" aria-label=Search> <output></output>"
           "</header>\n<main><section><h2 id=classes>Classes</h2>\n"
           "<p>A value in base units is (value + offset) × factor; the base unit of a class has the factor 1. Of "
           "classes that are made of others, what interfaces offer.</p>\n<div class=classes>\n";
    for (const uom::ClassEntry &entry : classes)
        writeClass(out, entry);
    out << "</div></section>\n";
    writeSlates(out, classes);
    writeAliases(out);
    out << "</main>\n<footer><p>uom " << escaped(uom::version()) << "</p></footer>\n<script>" << SCRIPT
        << "\n</script></body></html>\n";
}
