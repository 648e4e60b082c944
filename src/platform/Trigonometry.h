// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

/// Sine and cosine of one angle.
struct SineCosine {
    double sine = 0;
    double cosine = 0;
};

/// Sine and cosine of an angle in radians, each less than one unit in the last place away from the true
/// value. The same bits on every machine and from every compiler, which C libraries do not promise each
/// other. No number for an angle that is none or infinite.
///
/// The method: Payne and Hanek's reduction to the nearest multiple of pi/2, done in whole numbers; then the
/// polynomials of Sun's freely distributable mathematical library (fdlibm) on [-pi/4, pi/4].
SineCosine sineCosine(double radians);
