import QtQuick
import QtTest
import Tolvane.Components

Rectangle {
    width: 64
    height: 64
    color: "white"

    Icon {
        id: icon

        name: "folder"
        size: 24
    }

    TestCase {
        name: "Icons"
        when: windowShown

        // How many pixels are inked at all, and whether all of them lie between paper and ink.
        function look(ink) {
            const image = grabImage(icon);
            let inked = 0;
            for (let x = 0; x < image.width; ++x) {
                for (let y = 0; y < image.height; ++y) {
                    const pixel = image.pixel(x, y);
                    const away = Math.abs(pixel.r - 1) + Math.abs(pixel.g - 1) + Math.abs(pixel.b - 1);
                    if (away < 0.1) {
                        continue;
                    }
                    ++inked;
                    // Towards the ink and no other colour: the parts fade in one proportion.
                    const share = away / (3 - ink.r - ink.g - ink.b);
                    verify(Math.abs(1 - pixel.r - share * (1 - ink.r)) < 0.05, icon.name + " is not tinted");
                }
            }
            return inked;
        }

        function test_everyDrawingIsTinted() {
            verify(iconNames.length > 40);
            icon.color = "#c02040";
            for (const name of iconNames) {
                icon.name = name;
                verify(look(icon.color) > 12, name + " is empty");
            }
        }

        function test_symbolsOfPlacesHaveDrawingsAndOthersTheUnknownOne() {
            icon.name = "unknown";
            const unknown = grabImage(icon);
            for (const symbol of ["house", "arrow.down.circle", "square.grid.2x2", "books.vertical", "internaldrive",
                                  "circle.hexagongrid", "trash", "doc.on.doc", "network", "speedometer", "sparkles"]) {
                icon.name = symbol;
                verify(!grabImage(icon).equals(unknown), symbol);
            }
            icon.name = "../no such thing";
            verify(grabImage(icon).equals(unknown));
        }
    }
}
