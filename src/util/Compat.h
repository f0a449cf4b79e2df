// Everything that only GCC and clang understand stands in this one header, so that another compiler needs to change
// nothing else. (Nobody has tried another one yet.)
#pragma once

// The checker of printf arguments is told which parameter is the format. `ms_printf` (GCC alone) is the Windows
// runtime's dialect, in which %I64u and %p mean what that runtime prints.
#if defined(__GNUC__) && !defined(__clang__)
#define CRASHVANE_PRINTF(format_index, first_argument) __attribute__((format(ms_printf, format_index, first_argument)))
#else
#define CRASHVANE_PRINTF(format_index, first_argument)
#endif

// The signature of the function in which this stands, return type and parameters included.
#if defined(_MSC_VER) && !defined(__clang__)
#define CRASHVANE_SIGNATURE __FUNCSIG__
#else
#define CRASHVANE_SIGNATURE __PRETTY_FUNCTION__
#endif
