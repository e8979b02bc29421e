// The notes that belong to an analysis: a rich text file of its name, in the editor of the desktop.
#pragma once

#include "desk/kit/Menu.h"

namespace metrisk {

struct Analysis;
struct Session;

/// Opens the notes beside the analysis file and creates an empty file where there are none. An analysis
/// without a file of its own asks for its name first, which it then bears.
void OpenNotes(Session& session);

/// A name that was given to one copy of a record is that of the other as well: what a screen is left with
/// does not take it back.
void keepName(Analysis& record, const Analysis& named);

/// The menu item that does so; the session must outlive it.
MenuItem notesItem(Session& session);

} // namespace metrisk
