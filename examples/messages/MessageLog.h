#pragma once

// Appends a line to the log file: date and time, severity, text. The file is the one that the environment
// variable MESSAGE_LOG names, otherwise messages.log in the folder for temporary files. Where it cannot be
// written nothing happens: a message handler has nobody to tell.
void LogMessage(unsigned severity, const char* text);
