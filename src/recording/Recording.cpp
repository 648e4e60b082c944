// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "recording/Recording.h"

#include "runtime/ZBContext.h"

#include <algorithm>

namespace
{

/// Between two keyframes, in steps: some milliseconds.
constexpr std::int64_t usualBudget = 3'000'000;
constexpr std::int64_t workOfAFrame = 200; // beside that of its blocks
constexpr std::int64_t workOfASprite = 20;

std::size_t bytesOf(const RunState& state)
{
    return sizeof(RunState) + state.sprites.capacity() * sizeof(ZBSprite) +
           state.variables.counters.size() * sizeof(double) +
           state.variables.texts.size() * (sizeof(Text) + sizeof(std::int32_t)) +
           state.variables.order.size() * sizeof(std::int32_t);
}

} // namespace

Recording::~Recording()
{
    follow(nullptr);
}

void Recording::follow(ZBContext* context)
{
    if (m_context)
        m_context->logInputs(nullptr);
    m_context = context;
    if (m_context)
        m_context->logInputs(&m_inputs);
}

void Recording::runBegins(ZBContext& context, std::uint64_t seed)
{
    begin(context.state(), context.runFiles(), seed);
    follow(&context);
}

void Recording::begin(const RunState& beginning, std::shared_ptr<RunFiles> files, std::uint64_t seed)
{
    follow(nullptr);
    m_keyframes.clear();
    m_inputs.clear();
    m_files = std::move(files);
    m_seed = seed;
    m_frames = 0;
    m_isBroken = false;
    m_bytes = 0;
    m_budget = usualBudget;
    ++m_version;
    addKeyframe(beginning);
}

void Recording::setPlayed(std::vector<KeyInput> inputs, std::int64_t frames, bool isBroken)
{
    m_inputs = std::move(inputs);
    m_frames = frames;
    m_isBroken = isBroken;
}

void Recording::frameEnds()
{
    if (!m_context || m_context->state().tick == m_frames)
        return;
    m_frames = m_context->state().tick;
    passes(m_context->state());
}

void Recording::passes(const RunState& state)
{
    const std::int64_t since = state.tick - m_keyframes.back().state->tick;
    if (since <= 0)
        return;
    m_workSinceLast += workOfAFrame + workOfASprite * state.spriteCount + state.workInPass;
    if (m_keepsAll || m_workSinceLast >= m_budget || since >= longestStretch)
        addKeyframe(state);
}

void Recording::runBreaks()
{
    if (!m_context)
        return;
    m_isBroken = true;
    follow(nullptr);
}

void Recording::runEnds()
{
    follow(nullptr);
}

void Recording::addKeyframe(const RunState& state)
{
    auto copy = std::make_shared<RunState>(state);
    copy->inputs.clear(); // those of the recording stand for them
    m_bytes += bytesOf(*copy);
    const auto hasCounted = [&](const KeyInput& input) { return input.time.tick <= state.tick; };
    const auto counted = std::ranges::partition_point(m_inputs, hasCounted) - m_inputs.begin();
    m_keyframes.push_back({std::move(copy), static_cast<std::size_t>(counted)});
    m_workSinceLast = 0;
    while (!m_keepsAll && m_bytes > m_cap && m_keyframes.size() > 2)
        thin();
}

void Recording::thin()
{
    std::vector<Keyframe> kept;
    m_bytes = 0;
    for (std::size_t i = 0; i < m_keyframes.size(); i += 2) {
        m_bytes += bytesOf(*m_keyframes[i].state);
        kept.push_back(std::move(m_keyframes[i]));
    }
    m_keyframes = std::move(kept);
    m_budget *= 2;
}

const Recording::Keyframe& Recording::keyframeBefore(std::int64_t frame) const
{
    const auto after = std::ranges::upper_bound(
        m_keyframes, frame, {}, [](const Keyframe& keyframe) { return keyframe.state->tick; });
    return after == m_keyframes.begin() ? m_keyframes.front() : *(after - 1);
}

std::optional<InputTime> Recording::growingAt() const
{
    return m_context && m_context->state().inFrame() ? std::optional(m_context->state().now()) : std::nullopt;
}

std::shared_ptr<Recording> Recording::copy() const
{
    auto other = std::make_shared<Recording>(m_cap);
    other->m_keyframes = m_keyframes;
    other->m_inputs = m_inputs;
    other->m_files = m_files;
    other->m_seed = m_seed;
    other->m_frames = m_frames;
    other->m_isBroken = m_isBroken;
    other->m_bytes = m_bytes;
    other->m_budget = m_budget;
    return other;
}

void Recording::goOn(ZBContext& context)
{
    const RunState& state = context.state();
    const InputTime now = state.now();
    m_frames = state.tick - (state.inFrame() ? 1 : 0);
    m_isBroken = false;
    std::erase_if(m_keyframes, [&](const Keyframe& each) { return each.state->tick > m_frames; });
    m_bytes = 0;
    for (const Keyframe& keyframe : m_keyframes)
        m_bytes += bytesOf(*keyframe.state);
    // Those that count now have not counted yet at a statement that waits.
    const auto isToCome = [&](const KeyInput& input) {
        return state.inFrame() ? input.time >= now : input.time.tick > state.tick;
    };
    m_inputs.erase(std::ranges::find_if(m_inputs, isToCome), m_inputs.end());
    m_workSinceLast = 0;
    ++m_version;
    follow(&context);
}
