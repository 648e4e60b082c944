// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Surface.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

struct GifFileType;

/// Makes an animated GIF picture of frames, through giflib. It shows 33 of them a second and begins again at
/// its end. Of each frame only the rectangle is stored in which something has changed; frames with at most
/// 255 colors that have changed are exact, others get the 255 that suit them best.
class FilmFile
{
public:
    FilmFile();
    ~FilmFile();
    FilmFile(const FilmFile&) = delete;
    FilmFile& operator=(const FilmFile&) = delete;

    /// The first frame gives the film its size; those of another size are left out.
    void add(const Surface& frame);
    /// The bytes of the file; empty where there was no frame, or no memory for it. No frames come behind it.
    std::string finish();

private:
    static constexpr int delay = 3; ///< hundredths of a second
    struct Close {
        void operator()(GifFileType* gif) const;
    };
    /// A frame that is shown until one comes that differs.
    struct Picture {
        int left = 0;
        int top = 0;
        int width = 0;
        int height = 0;
        int delay = 0;
        std::vector<Pixel> colors;
        std::vector<unsigned char> indices; ///< into the colors; their number: as it was before
    };

    void open(const Surface& frame);
    Picture pictureOf(const Surface& frame) const;
    void writePicture();
    void expect(bool isWritten) { m_isGood = m_isGood && isWritten; }

    std::string m_bytes;
    std::unique_ptr<GifFileType, Close> m_gif;
    Surface m_last;
    Picture m_picture; ///< not written yet
    bool m_isGood = true;
};
