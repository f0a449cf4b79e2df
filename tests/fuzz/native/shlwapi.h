// Path functions: declared with the rest.
#pragma once
#include <windows.h>
