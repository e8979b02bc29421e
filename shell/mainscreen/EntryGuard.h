// Marks that a box is committing its entry, so that checks keep silent about data not entered yet.
#pragma once

#include "model/Session.h"

namespace metrisk {

class EntryGuard {
  public:
    explicit EntryGuard(Session& session) : session_(session) { session_.record.EntryBoxChanged = true; }
    ~EntryGuard() { session_.record.EntryBoxChanged = false; }
    EntryGuard(const EntryGuard&) = delete;
    EntryGuard& operator=(const EntryGuard&) = delete;

  private:
    Session& session_;
};

} // namespace metrisk
