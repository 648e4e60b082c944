// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "language/ZBLValueExp.h"
#include "runtime/world/ZBGraphic.h"
#include "runtime/world/ZBMap.h"

#include <cstdint>
#include <memory>
#include <string>
#include <tuple>

/// A sprite of a running game. Positions are world units, x and y from -100 to 100 across the playfield, y
/// upwards; directions are degrees counter-clockwise from +x and never normalised.
class ZBSprite
{
public:
    Text className = nullptr;
    std::int32_t classIndex = -1; ///< of the program's classes
    double direction = 0;
    double x = 0;
    double y = 0;
    double z = 0;
    double previousX = 0; ///< the position before the last statement that moved the sprite
    double previousY = 0;
    double previousZ = 0;
    std::shared_ptr<const ZBGraphic> graphic;
    double speed = 0;
    ZBLValueExp tag;
    std::int32_t slot = 0; ///< index in the sprite table when an event last bound the sprite
    std::int32_t uniqueId = 0;
    double stepX = 0; ///< the displacement of one move
    double stepY = 0;
    MapSquare mapSquare; ///< what the sprite was last found on
    bool destroyed = false;
    bool hidden = false;

    /// All of `other` but its previous position.
    void CopyFrom(const ZBSprite& other);

    void move();
    void moveforward(double distance);
    void moveBy(double dx, double dy, double dz);
    void moveTo(double newX, double newY, double newZ);
    void Unmove();
    void setSpeed(double newSpeed);
    void setDirection(double newDirection);
    /// Turns the x component of the motion round.
    void turnX() { setDirection(180 - direction); }
    void turnY() { setDirection(-direction); }

    /// False once an operation has made a number too big.
    bool isFinite() const;
    /// The sprite's line in a list of variables.
    std::string toString() const;

private:
    std::tuple<double&, double&, double&> position() { return {x, y, z}; }
    std::tuple<double&, double&, double&> previousPosition() { return {previousX, previousY, previousZ}; }
    void savePosition();
    void updateSteps();
};
