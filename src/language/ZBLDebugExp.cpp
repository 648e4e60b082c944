#include "language/ZBLDebugExp.h"

bool ZBLDebugExp::Parse(const ZBLReader& reader, int line)
{
    m_line = line;
    return Words(reader.lines[line]).next() == "pause";
}
