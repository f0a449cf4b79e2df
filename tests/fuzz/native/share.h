// Sharing modes of the C runtime of Windows.
#pragma once

constexpr int _SH_DENYNO = 0x40;
