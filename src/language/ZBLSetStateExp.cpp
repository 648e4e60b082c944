#include "language/ZBLSetStateExp.h"

bool ZBLSetStateExp::Parse(const ZBLReader& reader, int line)
{
    m_line = line;
    Words words(reader.lines[line]);
    if (words.next() != "setstate")
        return reader.fail("[Internal error!] This setstate instruction doesn't say setstate!", line);
    const std::string_view state = words.next();
    if (state.empty())
        return reader.fail("This setstate instruction doesn't say what state to go to!", line);
    m_stateName = reader.pool.intern(state);
    return true;
}
