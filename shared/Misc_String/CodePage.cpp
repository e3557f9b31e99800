#include "shared/Misc_String/CodePage.h"

namespace
{
bool IsNeverLeadByte(unsigned char)
{
    return false;
}

LeadByteTest leadByteTest = IsNeverLeadByte;
} // namespace

void SetLeadByteTest(LeadByteTest test)
{
    leadByteTest = test != nullptr ? test : IsNeverLeadByte;
}

bool IsDoubleByte(unsigned char byte, unsigned char next)
{
    return byte >= 0x80 && next != 0 && leadByteTest(byte);
}
