// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "recording/Questions.h"

#include "language/ZBLMutateExp.h"
#include "platform/NumberText.h"
#include "platform/TextFile.h"
#include "recording/ChildWords.h"
#include "recording/Explanation.h"
#include "recording/Onlooker.h"
#include "recording/RunLook.h"

#include <algorithm>
#include <utility>

namespace
{

using Kind = Question::Kind;

std::string textOf(const ZBLValueExp& value)
{
    return value.toString().value_or(std::string());
}

std::string variableName(const Program& program, ValueKind kind, std::int32_t slot)
{
    const VariableTable& table = program.tree.variables();
    const auto& names = kind == ValueKind::Counter ? table.counters() : table.texts();
    const auto index = static_cast<std::size_t>(slot);
    return index < names.size() ? ZBLVarExp{kind, slot, names[index]}.toString() : std::string();
}

ValueKind kindOf(Kind question)
{
    return question == Kind::CounterChanged ? ValueKind::Counter : ValueKind::Text;
}

std::string changeText(const std::string& name, const ZBLValueExp& before, const ZBLValueExp& after)
{
    if (before.type == ValueKind::None)
        return name + " became " + textOf(after);
    return name + " went from " + textOf(before) + " to " + textOf(after);
}

std::string timesText(std::int32_t times)
{
    return times > 1 ? " (" + countText(times) + " times in this frame)" : std::string();
}

/// Makes answers of those things that happened around a moment, as many as are shown at once.
template<typename Thing, typename MomentOf, typename TextOf>
Answers answersAround(const std::vector<Thing>& things, Moment around, const MomentOf& momentOf,
                      const TextOf& answerOf)
{
    Answers answers;
    const auto at =
        std::ranges::partition_point(things, [&](const Thing& thing) { return momentOf(thing) <= around; });
    const auto passed = static_cast<std::size_t>(at - things.begin());
    const std::size_t most = Questions::mostAnswers;
    const std::size_t latestFirst = things.size() - std::min(things.size(), most);
    const std::size_t first = std::min(passed - std::min(passed, most / 2), latestFirst);
    const std::size_t end = std::min(first + most, things.size());
    answers.hasEarlier = first > 0;
    answers.hasLater = end < things.size();
    answers.list.reserve(end - first);
    for (std::size_t i = first; i < end; ++i)
        answers.list.push_back(answerOf(things[i]));
    return answers;
}

} // namespace

// What can be asked.

std::string Questions::className(int index) const
{
    const auto place = static_cast<std::size_t>(index);
    const auto& classes = m_index.program()->tree.classes();
    return index >= 0 && place < classes.size() ? classes[place].className() : std::string("sprite");
}

std::string Questions::stateName(int index) const
{
    const auto place = static_cast<std::size_t>(index);
    const auto& states = m_index.program()->tree.states();
    return index >= 0 && place < states.size() ? states[place].stateName() : std::string();
}

Question Questions::aboutLine(int line)
{
    return {Kind::LineRan, line, "When did line " + std::to_string(line) + " run?"};
}

Question Questions::aboutFrame()
{
    return {Kind::InThisFrame, 0, "What happened in this frame?"};
}

std::vector<Question> Questions::all() const
{
    std::vector<Question> questions;
    const Program* const program = m_index.program();
    if (!program)
        return questions;
    for (const Kind kind : {Kind::CounterChanged, Kind::TextChanged}) {
        const VariableTable& table = program->tree.variables();
        const std::size_t count =
            kind == Kind::CounterChanged ? table.counters().size() : table.texts().size();
        for (std::size_t i = 0; i < count; ++i) {
            const auto slot = static_cast<std::int32_t>(i);
            questions.push_back(
                {kind, slot, "When did " + variableName(*program, kindOf(kind), slot) + " change?"});
        }
    }
    struct Form {
        Kind kind;
        std::string_view what;
    };
    for (std::size_t i = 0; i < program->classes.size(); ++i)
        for (const Form& form :
             {Form{Kind::SpriteCreated, " created?"}, Form{Kind::SpriteDestroyed, " destroyed?"},
              Form{Kind::SpriteHit, " hit?"}}) {
            const auto index = static_cast<std::int32_t>(i);
            questions.push_back(
                {form.kind, index, "When was " + withArticle(className(index)).append(form.what)});
        }
    for (std::size_t i = 0; i < program->states.size(); ++i) {
        const auto index = static_cast<std::int32_t>(i);
        questions.push_back(
            {Kind::StateEntered, index, "When did I come into state " + stateName(index) + "?"});
    }
    return questions;
}

// Answers out of the index.

Answers Questions::answer(const Question& question, Moment around) const
{
    if (!m_index.program())
        return {};
    switch (question.kind) {
    case Kind::CounterChanged:
    case Kind::TextChanged:
        return changes(question, around);
    case Kind::SpriteCreated:
    case Kind::SpriteDestroyed:
    case Kind::SpriteHit:
        return events(question, around);
    case Kind::StateEntered:
        return states(question.subject, around);
    case Kind::LineRan:
        return runs(question.subject, around);
    case Kind::InThisFrame:
        break;
    }
    return {};
}

Answers Questions::changes(const Question& question, Moment around) const
{
    const ValueKind kind = kindOf(question.kind);
    const std::string name = variableName(*m_index.program(), kind, question.subject);
    Answers answers = answersAround(
        m_index.changesOf(kind, question.subject), around,
        [](const RunIndex::Change& change) { return change.moment; },
        [&](const RunIndex::Change& change) {
            return Answer{change.moment, change.line,
                          placeText(change.moment, change.line) + ": " +
                              changeText(name, change.before, change.after) + timesText(change.times)};
        });
    if (answers.list.empty())
        answers.note = name + " has not changed yet.";
    return answers;
}

Answers Questions::events(const Question& question, Moment around) const
{
    const auto what = question.kind == Kind::SpriteCreated     ? RunIndex::Happening::Created
                      : question.kind == Kind::SpriteDestroyed ? RunIndex::Happening::Destroyed
                                                               : RunIndex::Happening::Hit;
    Answers answers = answersAround(
        m_index.happenedTo(question.subject, what), around,
        [](const RunIndex::ClassEvent& event) { return event.moment; },
        [&](const RunIndex::ClassEvent& event) {
            return Answer{event.moment, event.line,
                          placeText(event.moment, event.line) + ": " + eventText(event, question) +
                              timesText(event.times)};
        });
    if (!answers.list.empty())
        return answers;
    const std::string name = className(question.subject);
    if (question.kind == Kind::SpriteHit)
        answers.note = "No COLLISION block has run for a " + name + " yet.";
    else
        answers.note = "No " + name + " has been " +
                       (question.kind == Kind::SpriteCreated ? "created" : "destroyed") + " yet.";
    return answers;
}

std::string Questions::eventText(const RunIndex::ClassEvent& event, const Question& question) const
{
    const std::string name = withArticle(className(question.subject));
    if (question.kind != Kind::SpriteHit)
        return name + (question.kind == Kind::SpriteCreated ? " was created" : " was destroyed");
    const std::string other = withArticle(className(event.otherClass));
    return event.isIt ? other + " touched " + name : name + " touched " + other;
}

Answers Questions::states(std::int32_t state, Moment around) const
{
    std::vector<RunIndex::StateEntry> entries = m_index.states();
    std::erase_if(entries, [&](const RunIndex::StateEntry& entry) { return entry.state != state; });
    const std::string name = stateName(state);
    Answers answers = answersAround(
        entries, around, [](const RunIndex::StateEntry& entry) { return entry.moment; },
        [&](const RunIndex::StateEntry& entry) {
            std::string text = placeText(entry.moment, 0) + ": came into state " + name;
            if (entry.line > 0)
                text += ", as line " + std::to_string(entry.line) + " said in frame " +
                        countText(frameNumberOf(entry.asked));
            return Answer{entry.moment, entry.line, std::move(text)};
        });
    if (answers.list.empty())
        answers.note = "The game has not come into state " + name + " yet.";
    return answers;
}

Answers Questions::runs(int line, Moment around) const
{
    const std::string name = "line " + std::to_string(line);
    Answers answers = answersAround(
        m_index.runsOf(line), around, [](const RunIndex::LineRun& run) { return run.first; },
        [&](const RunIndex::LineRun& run) {
            if (run.first.frame == run.lastFrame)
                return Answer{run.first, line, placeText(run.first, 0) + ": " + name + " ran"};
            return Answer{run.first, line,
                          "Frames " + countText(run.first.frame + 1) + " to " + countText(run.lastFrame + 1) +
                              ": " + name + " ran in each of them"};
        });
    const std::int64_t times = m_index.timesRun(line);
    if (m_index.lines().line(line).statement == nullptr)
        answers.note = "There is no instruction in " + name + ".";
    else if (times == 0)
        answers.note = "Line " + std::to_string(line) + " has not run yet.";
    else
        answers.note =
            "Line " + std::to_string(line) + " ran " + (times == 1 ? "once." : countText(times) + " times.");
    return answers;
}

// One frame, as it goes by.

namespace
{

class FrameStory final : public Onlooker
{
public:
    explicit FrameStory(const RunState& run)
        : m_run(run)
        , m_lines(*run.program, run.lines->upperBound())
    {
    }

    void statement(int line) override
    {
        settle();
        ++m_statement;
        const ZBLStatement* const statement = m_lines.line(line).statement;
        std::string_view written = (*m_run.lines)[line];
        if (written.ends_with('{'))
            written = trimSpaces(written.substr(0, written.size() - 1));
        std::string text = "line " + std::to_string(line) + ": " + std::string(written);
        if (!statement || isFull())
            return add(now(), line, std::move(text));
        const std::string more = m_explainer.explain(m_run, *statement);
        add(now(), line, more.empty() ? std::move(text) : text + " (" + more + ")");
        if (statement->type() != StatementType::Mutate)
            return;
        m_pending = static_cast<const ZBLMutateExp*>(statement);
        m_before = valueOf(m_run, m_pending->target());
    }
    void eventBegins(EventName event) override
    {
        settle();
        const ZBSprite* const me = boundSprite(m_run, false);
        const ZBSprite* const it = boundSprite(m_run, true);
        if (!me)
            return;
        add(next(), openingLineOf(m_run, *me, event),
            event == EventName::Collision && it
                ? withArticle(*me->className) + " touched " + withArticle(*it->className)
                : upperCase(wordFor(event)) + " of " + withArticle(*me->className));
    }
    void eventEnds() override { settle(); }
    void stateEntered() override
    {
        settle();
        add(next(), 0, upperCase(m_run.subState()) + " of state " + m_run.state);
    }
    void pauses(int line) override
    {
        settle();
        add(next(), line, "line " + std::to_string(line) + ": pause");
    }
    void created(int line) override
    {
        settle();
        if (m_run.running && m_run.spriteCount > 0)
            add(next(), line,
                "line " + std::to_string(line) + ": " + withArticle(*liveSprites(m_run).back().className) +
                    " was created");
    }
    /// The statement before has run: what became of its variable goes behind its text.
    void settle()
    {
        const ZBLMutateExp* const statement = std::exchange(m_pending, nullptr);
        if (!statement || !m_run.programLoaded)
            return;
        const ZBLValueExp after = valueOf(m_run, statement->target());
        if (after != m_before)
            answers.list.back().text +=
                " (" + changeText(statement->target().toString(), m_before, after) + ")";
    }

    Answers answers;

private:
    bool isFull() const { return answers.list.size() >= Questions::mostAnswers; }
    Moment now() const { return {m_run.tick - 1, m_statement}; }
    Moment next() const { return {m_run.tick - 1, m_statement + 1}; }
    void add(Moment moment, int line, std::string text)
    {
        answers.hasLater = isFull();
        if (answers.hasLater || text.empty())
            return;
        text.front() = text.front() >= 'a' && text.front() <= 'z'
                           ? static_cast<char>(text.front() - 'a' + 'A')
                           : text.front();
        answers.list.push_back({moment, line, std::move(text)});
    }

    const RunState& m_run;
    ProgramLines m_lines;
    Explainer m_explainer;
    std::int32_t m_statement = 0;
    const ZBLMutateExp* m_pending = nullptr; ///< the statement announced last
    ZBLValueExp m_before;                    ///< the value of its variable
};

} // namespace

Answers Questions::inFrame(Replay& replay, Moment moment)
{
    const std::int64_t frame = frameSeenAt(moment);
    if (frame < 0) {
        Answers none;
        none.note = "The game has not begun yet.";
        return none;
    }
    const Moment here = replay.moment();
    const Moment end = std::min(Moment{frame + 1, 0}, replay.last());
    replay.seek({frame, 0});
    FrameStory story(replay.state());
    replay.watchTo(frame, end, story);
    story.settle();
    replay.seek(here);
    if (story.answers.list.empty())
        story.answers.note = "No instruction ran in this frame.";
    return std::move(story.answers);
}
