#include "shell/mainscreen/TextFields.h"

#include "model/Session.h"
#include "model/Text.h"
#include "shell/mainscreen/FieldRules.h"

namespace metrisk {

const std::array<TextField, 13> textFields{{
    {"SystemIDBox", &Analysis::SU_Manufacturer},
    {"SUModelNumberBox", &Analysis::SU_ModelNumber},
    {"SUDescriptionBox", &Analysis::SU_Description},
    {"ParameterIDBox", &Analysis::SU_ParameterName},
    {"Qualifier1Box", &Analysis::SU_Qualifier1},
    {"Qualifier2Box", &Analysis::SU_Qualifier2},
    {"MTESystemIDBox", &Analysis::MTE_Manufacturer},
    {"MTEModelNumberBox", &Analysis::MTE_ModelNumber},
    {"MTEDescriptionBox", &Analysis::MTE_Description},
    {"MTEParameterIDBox", &Analysis::MTE_ParameterName},
    {"MTEQualifier1Box", &Analysis::MTE_Qualifier1},
    {"MTEQualifier2Box", &Analysis::MTE_Qualifier2},
    {"MTEParameterUnitsBox", &Analysis::MTE_ParameterUnits},
}};

std::string entryText(std::string text) {
    text = withoutQuotes(std::move(text));
    // An item of the file is one line.
    for (char& c : text)
        if (c == '\n' || c == '\r') c = ' ';
    return text;
}

bool commitText(Session& session, std::string_view box, const std::string& text) {
    for (const TextField& field : textFields) {
        if (box != field.box) continue;
        std::string& stored = session.record.*field.field;
        std::string wanted = entryText(text);
        if (stored != wanted) {
            stored = std::move(wanted);
            session.record.FileChanged = true;
        }
        return true;
    }
    return false;
}

} // namespace metrisk
