#include "loading/slate_lines.h"

#include <algorithm>

#include "catalogue/class_table.h"
#include "catalogue/slate_table.h"
#include "loading/data_lines.h"
#include "slates/definition_text.h"
#include "support/message.h"
#include "support/name_index.h"
#include "support/text.h"

namespace uom {

struct Slate {
    const char *name;
    int32_t index;
};

// Where the line stands, or may be put: a free place near its own, else its own.
static KnownLine &placeOf(KnownLines &known, std::string_view text) {
    constexpr uint32_t NEAR = 16;
    const uint32_t own = names_Hash(text);
    for (uint32_t i = 0; i < NEAR; ++i) {
        KnownLine &line = known.lines[(own + i) % KnownLines::PLACES];
        if (line.text.empty() || line.text == text)
            return line;
    }
    return known.lines[own % KnownLines::PLACES];
}

static void remember(KnownLine &line, const Catalogue &catalogue, std::string_view text, const ClassDefault &read) {
    if (read.classId == CLASS_NONE || uom_GetUnitMax(catalogue, read.classId) > KnownLine::SLOTS)
        return;
    line.text = text;
    line.classId = read.classId;
    std::copy_n(read.units, KnownLine::SLOTS, line.units);
    std::copy_n(read.multipliers, KnownLine::SLOTS, line.multipliers);
}

static void forgetBeforeNewClasses(KnownLines &known, const Catalogue &catalogue) {
    if (known.classes == catalogue.classes.count)
        return;
    known = {};
    known.classes = catalogue.classes.count;
}

static int32_t applyLine(Catalogue &catalogue, Running &running, const Slate &slate, DataLines &lines,
                         KnownLines &known) {
    forgetBeforeNewClasses(known, catalogue);
    KnownLine &line = placeOf(known, lines.raw);
    if (line.text == lines.raw && slate_IsValid(catalogue, slate.index)) {
        error_Clear();
        return uom_SetClassDefault(catalogue, running, slate.index, line.classId, line.units, line.multipliers);
    }
    str_CopyBounded(lines.text, sizeof lines.text, lines.raw);
    ClassDefault read;
    const int32_t status = definition_ApplyLine(catalogue, running, slate.name, lines.text, read);
    remember(line, catalogue, lines.raw, read);
    return status;
}

int32_t slatelines_Apply(Catalogue &catalogue, Running &running, const char *slateName, std::string_view text,
                         KnownLines &known) {
    const Slate slate = {slateName, uom_GetSetType(catalogue, slateName)};
    DataLines lines = {};
    lines.delimiters = DATA_KEY_DELIMITERS;
    lines.ahead = text;
    int32_t status = UOM_DONE;
    while (status != UOM_NO_MEMORY && data_NextRawLine(lines) && !lines.ahead.empty()) {
        if (!str_IsLetter(lines.raw.front()) && !(data_CutFirst(lines) && *lines.first))
            continue;
        status = applyLine(catalogue, running, slate, lines, known);
    }
    return status;
}

} // namespace uom
