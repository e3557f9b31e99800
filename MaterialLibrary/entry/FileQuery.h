#pragma once

// Whether the file system reports that the path, in the system's code page, exists and is no directory. A
// query that fails counts as no.
[[nodiscard]] bool IsExistingFile(const char* path);
