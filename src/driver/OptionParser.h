// Reads single-letter options from the command line, one a call.
//
// The position (next argument, and the letter inside a cluster such as "-abd") and the value of the option just read
// are process-wide: one command line a process. What is wrong with an option is said on standard error.
#pragma once

namespace crashvane {

// What NextOption returns besides a letter.
constexpr int OptionEnd = -1;
constexpr int OptionError = 63;  // '?'

// The value of the last option that takes one; belongs to argv. Null when argv held a null pointer there.
extern char* optarg;

// The next option among pszOptions, in which a letter followed by ':' takes the whole next argument as its value, even
// one that begins with a hyphen; what follows such a letter inside its cluster is ignored. OptionEnd from the first
// argument on that is no option: it is not consumed, while one that begins with "--" is. OptionError: the message was
// printed and the next call goes on behind the mistake.
int NextOption(int argc, char** argv, const char* pszOptions);

// Starts again at the first argument.
void ResetOptions();

}  // namespace crashvane
