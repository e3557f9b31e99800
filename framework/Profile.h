#pragma once

#include <string>

// The settings of the module's users: values of HKEY_CURRENT_USER\Software\<registry key>\<application>, in
// sections. Reading never fails: a value that is missing, of another kind or longer than 4096 bytes counts as
// `otherwise`. While the module's application object is not initialised there are no settings.

[[nodiscard]] int ReadProfileInteger(const char* section, const char* name, int otherwise);
[[nodiscard]] std::string ReadProfileString(const char* section, const char* name, const char* otherwise);

// Whether the value was written.
bool StoreProfileInteger(const char* section, const char* name, int value);
bool StoreProfileString(const char* section, const char* name, const std::string& value);
