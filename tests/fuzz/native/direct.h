// Folders by the C runtime of Windows.
#pragma once

int _mkdir(const char* pszFolder);
