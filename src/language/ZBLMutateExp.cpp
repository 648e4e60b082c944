#include "language/ZBLMutateExp.h"

bool ZBLMutateExp::Parse(const ZBLReader& reader, int line)
{
    m_line = line;
    Words words(reader.lines[line]);
    const std::string verb(words.next());
    if (verb != "set" && verb != "change")
        return reader.fail("[Internal error!] I don't know of any variable method named " + verb + ".", line);
    m_verb = verb == "set" ? Verb::Set : Verb::Change;

    const std::string_view target = words.next();
    if (target.empty())
        return reader.fail("You didn't specify a variable to " + verb + " in this statement.", line);
    const auto variable = reader.variables.Parse(target, reader.pool);
    if (!variable)
        return reader.fail("I don't understand the variable name (" + std::string(target) + ") in this " +
                               verb + " statement.",
                           line);
    m_target = *variable;

    const std::string_view value = words.next();
    if (value.empty())
        return reader.fail("You didn't specify a value in this " + verb + " statement.", line);
    if (!m_value.Parse(value, reader))
        return reader.fail("I don't understand the value (" + std::string(value) + ") in this " + verb +
                               " statement.",
                           line);
    return true;
}

std::string ZBLMutateExp::toString() const
{
    return (m_verb == Verb::Set ? "set " : "change ") + m_target.toString() + " " + m_value.toString();
}
