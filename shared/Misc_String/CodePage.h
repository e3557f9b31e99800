#pragma once

// Whether a byte begins a double-byte character of the code page that texts are written in.
using LeadByteTest = bool (*)(unsigned char);

// Names the code page's test for the whole process; null brings back the default, by which every
// character is a single byte. Only bytes from 128 up are ever asked for. Call it before texts are
// compared or parsed: it is not guarded against other threads.
void SetLeadByteTest(LeadByteTest test);

// True when `byte` is a lead byte and a second byte of the same character follows it.
[[nodiscard]] bool IsDoubleByte(unsigned char byte, unsigned char next);
