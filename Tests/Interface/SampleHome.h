#pragma once

#include <Support/TemporaryHome.h>

#include <filesystem>
#include <string>
#include <vector>

namespace tolvane {

/// A home folder as people have them: folders of very different sizes, names of all kinds.
inline void fillSampleHome(const TemporaryHome& home) {
    const auto write = [&home](const std::string& relative, std::size_t kilobytes) {
        home.write(relative, std::string(kilobytes * 1000, 'x'));
    };
    for (std::size_t number = 1; number <= 24; ++number) {
        write("Pictures/2024 Lofoten/IMG_" + std::to_string(4100 + number) + ".raw",
              180 + 7 * number);
        write("Music/Field recordings/Take " + std::to_string(number) + ".flac", 60);
    }
    write("Pictures/2023 Harbour at night with the long exposure series/IMG_0001.raw", 900);
    write("Videos/Interview, uncut.mkv", 9000);
    write("Videos/Trailer.mp4", 1400);
    write("Downloads/debian-12.5.0-amd64-netinst.iso", 3600);
    write("Downloads/<b>offer<br> &amp; invoice.pdf", 210);
    write("Downloads/not \xff UTF-8 \xc3.zip", 840);
    write("Documents/Thesis/thesis.pdf", 1300);
    write("Documents/Thesis/figures/overview.svg", 90);
    write("Documents/Taxes/2024.ods", 40);
    write("Documents/\u8acb\u6c42\u66f8/\u4e09\u6708.pdf", 70);
    write("Projects/engine/build/engine.o", 2600);
    write("Projects/engine/src/main.cpp", 12);
    write(".cache/thumbnails/large/0f3a.png", 700);
    write(".cache/fontconfig/index.cache", 260);
    write(".local/share/mail/archive.mbox", 1900);
    write("notes.txt", 4);
    home.makeLink("latest", "nowhere/at/all");
}

/// Files that people have twice: photographs and their backups, downloads that came again.
inline void fillSampleCopies(const TemporaryHome& home) {
    const auto write = [&home](std::size_t kilobytes, const std::vector<std::string>& places) {
        std::string content = places.front();
        content.resize(kilobytes * 1000, 'x');
        for (const std::string& place : places) {
            home.write("Documents/" + place, content);
        }
    };
    write(9400, {"Films/Interview, uncut.mkv", "Backup 2024/Films/Interview, uncut.mkv"});
    for (std::size_t number = 1; number <= 9; ++number) {
        const std::string name = "IMG_" + std::to_string(4100 + number);
        write(2600 + 130 * number, {"Pictures/Lofoten/" + name + ".raw",
                                    "Backup 2024/Pictures/Lofoten/" + name + ".raw"});
    }
    write(3600, {"Incoming/debian-12.5.0-amd64-netinst.iso",
                 "Incoming/debian-12.5.0-amd64-netinst (1).iso",
                 "Incoming/debian-12.5.0-amd64-netinst (2).iso", "images/debian.iso"});
    write(1300, {"Thesis/thesis.pdf", "Thesis/versions handed in/thesis, final, really final.pdf",
                 "Backup 2024/Thesis/the version that the examiners had in the end/thesis.pdf"});
    write(1200, {"Incoming/<b>offer<br> &amp; invoice.pdf", "Incoming/not \xff UTF-8 \xc3.pdf"});
    std::filesystem::create_hard_link(home.path("Documents/Films/Interview, uncut.mkv"),
                                      home.path("Documents/Films/the same by another name.mkv"));
}

}
