#pragma once

// What matlib.exe and its message module agree on.

// Takes one message of the material library. `text` lives as long as the call.
using MessageSink = void (*)(void* context, const char* text);

// The module's export "SetMessageSink": where messages go from now on; null: nowhere.
using SetMessageSinkFunction = void (*)(MessageSink sink, void* context);
