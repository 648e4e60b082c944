// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "runtime/Trace.h"

#include "platform/NumberText.h"

#include <algorithm>

Trace::Trace(SpyPort& spy, RunState& run)
    : m_spy(spy)
    , m_run(run)
{
}

void Trace::SpyWrite(std::string_view text, int line)
{
    m_line.clear();
    const auto indentation = static_cast<std::size_t>(std::max(m_run.traceDepth, 0)) * 2;
    if (line != 0) {
        appendPadded(m_line, line, 4);
        m_line.append(indentation + 1, ' ');
    } else {
        m_line.append(indentation + 5, ' ');
    }
    m_line += text;
    m_spy.addHistoryLine(m_line);
}

void Trace::TraceLine(int line)
{
    if (!m_on)
        return;
    if (m_watcher)
        m_watcher->statement(line);
    if (m_boxes.code)
        SpyWrite((*m_run.lines)[line], line);
    if (!m_labelsShown) {
        m_labelsShown = true;
        m_spy.showState(m_run.state, m_run.subState());
    }
}

void Trace::TraceStateChange()
{
    forgetLabels();
    if (m_watcher)
        m_watcher->stateEntered();
    m_text.assign("New State: State=").append(m_run.state);
    m_text.append(" SubState=").append(m_run.subState());
    SpyWrite(m_text, 0);
}

void Trace::TraceFrame()
{
    m_text.assign("|              Frame ");
    appendPadded(m_text, m_run.frameNumber, 5);
    m_text += "               |";
    SpyWrite(" ________________________________________", 0);
    SpyWrite("|                                        |", 0);
    SpyWrite(m_text, 0);
    SpyWrite("|________________________________________|", 0);
}

void Trace::TraceEventEntry(std::string_view className, EventName event, std::string_view tagText)
{
    if (m_watcher)
        m_watcher->eventBegins(event);
    if (m_boxes.events) {
        m_text.assign(className).append(".").append(wordFor(event)).append("{");
        if (!tagText.empty())
            m_text.append(" ; tag = ").append(tagText);
        SpyWrite(m_text, 0);
    }
    ++m_run.traceDepth;
}

void Trace::TraceEventExit(std::string_view className, EventName event)
{
    if (m_watcher)
        m_watcher->eventEnds();
    --m_run.traceDepth;
    if (!m_boxes.events)
        return;
    m_text.assign("}").append(className).append(".").append(wordFor(event));
    SpyWrite(m_text, 0);
}

void Trace::TracePause(int line, int depth)
{
    if (m_watcher)
        m_watcher->pauses(line);
    m_run.traceDepth += depth;
    SpyWrite("\\/\\/\\/\\/\\/\\/\\/\\/\\/\\/\\/\\/\\/\\/\\/\\/\\/\\/\\/", 0);
    m_text.assign("     PAUSE REQUESTED AT LINE ");
    appendPadded(m_text, line, 1);
    SpyWrite(m_text, 0);
    m_run.traceDepth -= depth;
}

void Trace::TraceIfEnd()
{
    --m_run.traceDepth;
    if (m_boxes.code)
        SpyWrite("}if", 0);
}
