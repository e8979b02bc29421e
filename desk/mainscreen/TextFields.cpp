#include "desk/mainscreen/TextFields.h"

#include "base/Text.h"
#include "desk/kit/Session.h"
#include "desk/mainscreen/FieldRules.h"

namespace metrisk {

const std::array<TextField, 13> textFields{{
    {&MainScreen::SystemIDBox, &Analysis::SU_Manufacturer},
    {&MainScreen::SUModelNumberBox, &Analysis::SU_ModelNumber},
    {&MainScreen::SUDescriptionBox, &Analysis::SU_Description},
    {&MainScreen::ParameterIDBox, &Analysis::SU_ParameterName},
    {&MainScreen::Qualifier1Box, &Analysis::SU_Qualifier1},
    {&MainScreen::Qualifier2Box, &Analysis::SU_Qualifier2},
    {&MainScreen::MTESystemIDBox, &Analysis::MTE_Manufacturer},
    {&MainScreen::MTEModelNumberBox, &Analysis::MTE_ModelNumber},
    {&MainScreen::MTEDescriptionBox, &Analysis::MTE_Description},
    {&MainScreen::MTEParameterIDBox, &Analysis::MTE_ParameterName},
    {&MainScreen::MTEQualifier1Box, &Analysis::MTE_Qualifier1},
    {&MainScreen::MTEQualifier2Box, &Analysis::MTE_Qualifier2},
    {&MainScreen::MTEParameterUnitsBox, &Analysis::MTE_ParameterUnits},
}};

std::string entryText(std::string text) {
    text = withoutQuotes(std::move(text));
    // An item of the file is one line.
    for (char& c : text)
        if (c == '\n' || c == '\r') c = ' ';
    return text;
}

void commitText(Session& session, std::string Analysis::*field, const std::string& text) {
    std::string& stored = session.record.*field;
    std::string wanted = entryText(text);
    if (stored == wanted) return;
    stored = std::move(wanted);
    session.record.FileChanged = true;
}

} // namespace metrisk
