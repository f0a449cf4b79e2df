// The crashes that the sample can be asked for. All of them are real.
#pragma once

namespace sample {

// Crashes as pszHow says: "access", "stack", "abort", "memory", "exception". Returns for "none", and for a word that
// it does not know, with false.
bool CrashAs(const char* pszHow);

}  // namespace sample
