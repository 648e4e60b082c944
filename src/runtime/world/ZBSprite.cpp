// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "runtime/world/ZBSprite.h"

#include "platform/NumberText.h"
#include "platform/TextFile.h"
#include "platform/Trigonometry.h"

#include <cmath>

namespace
{
// Fifteen digits, no more: steps computed with a finer pi would differ in their last bits.
constexpr double pi = 3.14159265358979;

SineCosine ofDegrees(double degrees)
{
    return sineCosine(degrees * pi / 180);
}
} // namespace

void ZBSprite::CopyFrom(const ZBSprite& other)
{
    const std::tuple<double, double, double> kept = previousPosition();
    *this = other;
    previousPosition() = kept;
}

void ZBSprite::savePosition()
{
    previousPosition() = position();
}

void ZBSprite::updateSteps()
{
    const SineCosine heading = ofDegrees(direction);
    stepX = speed * heading.cosine;
    stepY = speed * heading.sine;
}

void ZBSprite::move()
{
    savePosition();
    x += stepX;
    y += stepY;
}

void ZBSprite::moveforward(double distance)
{
    const SineCosine heading = ofDegrees(direction);
    moveBy(distance * heading.cosine, distance * heading.sine, 0);
}

void ZBSprite::moveBy(double dx, double dy, double dz)
{
    moveTo(x + dx, y + dy, z + dz);
}

void ZBSprite::moveTo(double newX, double newY, double newZ)
{
    savePosition();
    position() = std::tuple(newX, newY, newZ);
}

void ZBSprite::Unmove()
{
    position() = previousPosition();
}

void ZBSprite::setSpeed(double newSpeed)
{
    speed = newSpeed;
    updateSteps();
}

void ZBSprite::setDirection(double newDirection)
{
    direction = newDirection;
    updateSteps();
}

bool ZBSprite::isFinite() const
{
    return std::isfinite(x) && std::isfinite(y) && std::isfinite(z) && std::isfinite(direction) &&
           std::isfinite(speed);
}

std::string ZBSprite::toString() const
{
    std::string line = upperCase(*className);
    line += ' ';
    line += tag.toString().value_or(std::string());
    line += " (" + fixedNumber(x) + ", " + fixedNumber(y) + ", " + fixedNumber(z) + ")";
    line += " Speed=" + fixedNumber(speed);
    line += " Direction=" + fixedNumber(direction);
    line += " Graphic=" + graphic->getName();
    return line;
}
