// A file as ErrorLedger writes it.
#pragma once

#include "desk/kit/Worksheet.h"
#include "tests/support/ScriptedInteraction.h"

#include <string>

namespace metrisk::testing {

/// A screen on which data can be asked for.
struct EmptyScreen final : Worksheet {
    EmptyScreen() : Worksheet("MainScreen", "", "") {}
    void refresh() override {}
};

inline void expectWanted(ScriptedInteraction& ui, Answer answer = Answer::Yes) {
    ui.expectBox("Uncertainty Data Link",
                 "Link to ErrorLedger successful.\n\nDo you want to import ErrorLedger data into Metrisk?",
                 answer);
}
inline void expectTolerances(ScriptedInteraction& ui, Answer answer) {
    ui.expectBox("Uncertainty Data Available",
                 "Do you want to import parameter tolerance data as well as\n"
                 "process uncertainty data into Metrisk?",
                 answer);
}

/// Rows that a test may change; the others are those of an ordinary analysis: 10 V, limits 9.5 and 10.4 V in
/// mV.
struct PartnerText {
    std::string header = "#TRUE#,1.512";
    std::string errors =
        "\"2.5\",\"95\",\"\",\"1.25\"\r\n\"3\",\"\",\"12\",\"1.5\"\r\n\"\",\"\",\"\",\"-1\"\r\n"
        "\"1\",\"101\",\"x\",\"0.5\"\r\n\"\",\"\",\"\",\"\"\r\n\"\",\"\",\"\",\"\"\r\n"
        "\"9\",\"99\",\"7\",\"4\"\r\n\"\",\"\",\"\",\"\"\r\n";
    std::string names =
        "\"True\",\"1\",\"Mine\"\r\n\"False\",\"1\",\"\"\r\n\"\",\"2\",\"\"\r\n\"\",\"0\",\" \"\r\n"
        "\"\",\"1\",\"Na\nme\"\r\n\"\",\"\",\"\"\r\n\"True\",\"\",\"\"\r\n\"\",\"\",\"\"\r\n";
    std::string samples = "0\r\n3\r\n\"0.001\",\"True\"\r\n\"0.5\",\"False\"\r\n\"0.003\",\"-1\"\r\n";
    std::string units = "10,\"#0\",\"V\",\"uV\",1000000,\"mV\",1000\r\n";
    std::string limits = "\"10.4\",\"9.5\",\"95\",\"9\",9,\"10.002\",\"9.998\",\"90\"\r\n";
    std::string options = "-1,0,0,0,0\r\n";
    std::string tolerances = ".4,\"\",.3,\"\",\"1\",\"\"\r\n.5,\"\",.5,\"\",0,\"\"\r\n0,\"\",0,\"\",0,"
                             "\"\"\r\n0,\"\",0,\"\",0,\"\"\r\n";
    std::string measuring = "\".002\",\"\",.002,\"\",0,\"\"\r\n0,\"\",0,\"\",0,\"\"\r\n0,\"\",0,\"\",0,"
                            "\"\"\r\n\"\",\"\",0,\"\",0,\"\"\r\n";
    std::string rest = block() + block() + "3\r\n0\r\n-1\r\n15\r\n#TRUE#\r\n#FALSE#\r\n" + eight() +
                       "1.5\r\n" + "0\r\n1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8\r\n9\r\n";

    std::string beforeTolerances() const {
        return header + "\r\n#TRUE#\r\n" + errors + names + samples + "\"Voltage\"\r\n0,0,0\r\n0,.001,2\r\n";
    }
    std::string text() const {
        return beforeTolerances() + units +
               "\"Maker\",\"M1\",\"Meter\",\"Volts\",\"q1\",\"q2\"\r\n\"Std\",\"S1\",\"Source\",\"Volts\","
               "\"\",\"\"\r\n" +
               limits + options + "3\r\n" + tolerances + measuring + rest;
    }

  private:
    static std::string block() {
        std::string rows = "2\r\n";
        for (int i = 0; i < 6; ++i) rows += "1.5\r\n\"#0.0\"\r\n";
        return rows;
    }
    static std::string eight() {
        std::string rows;
        for (int i = 0; i < 8; ++i) rows += "\"t\"\r\n";
        return rows;
    }
};

} // namespace metrisk::testing
