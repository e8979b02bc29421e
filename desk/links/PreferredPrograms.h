// The user's preferred spreadsheet and calculator: started, and chosen by an example of their files.
#pragma once

namespace metrisk {

struct Session;

enum class Preferred { Spreadsheet, Calculator };

/// Start the preferred program; where none is set, or it cannot be started, ask whether to choose one. A
/// session without a desktop starts nothing.
void RunSpreadsheet(Session& session);
void RunCalculator(Session& session);

/// Has the user choose a program, or a file that the program of that kind opens. False if none was chosen or
/// it cannot be started; the setting stays as it was then.
bool LocateApplication(Session& session, Preferred kind);

} // namespace metrisk
