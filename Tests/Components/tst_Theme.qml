import QtQuick
import QtTest
import Tolvane.Components

TestCase {
    function linear(part) {
        return part <= 0.03928 ? part / 12.92 : Math.pow((part + 0.055) / 1.055, 2.4);
    }
    function luminance(color) {
        return 0.2126 * linear(color.r) + 0.7152 * linear(color.g) + 0.0722 * linear(color.b);
    }
    // As WCAG 2 computes it.
    function contrast(one, other) {
        const lights = [luminance(one), luminance(other)].sort((a, b) => a - b);
        return (lights[1] + 0.05) / (lights[0] + 0.05);
    }
    function expectContrast(inks, grounds, least) {
        for (const ink of inks) {
            for (const ground of grounds) {
                const ratio = contrast(Theme[ink], Theme[ground]);
                verify(ratio >= least, ink + " on " + ground + ": " + ratio.toFixed(2));
            }
        }
    }

    name: "Theme"

    function cleanup() {
        Theme.isDark = false;
    }

    function test_everyTextIsReadableOnEveryGround_data() {
        return [{tag: "light", isDark: false}, {tag: "dark", isDark: true}];
    }
    function test_everyTextIsReadableOnEveryGround(data) {
        Theme.isDark = data.isDark;
        expectContrast(["text", "secondaryText", "accentText", "dangerText", "warningText", "successText"],
                       ["window", "sidebar", "surface", "control", "controlHovered", "controlPressed", "accentSoft", "dangerSoft", "warningSoft"], 4.5);
        expectContrast(["accentInk"], ["accent", "accentHovered", "accentPressed", "danger", "dangerHovered", "dangerPressed"], 4.5);
        expectContrast(["outline", "focusRing"], ["window", "surface", "control"], 3);
        compare(Theme.categories.length, 8);
        for (let i = 0; i < 8; ++i) {
            verify(contrast(Theme.category(i), Theme.categoryText) >= 4.5, "category " + i);
            compare(Theme.category(i + 8), Theme.category(i));
        }
    }

    FigureLabel { id: ones; text: "11:11" }
    FigureLabel { id: eights; text: "88:88" }
    PlainLabel { id: plainOnes; text: "11:11" }

    function test_figuresStandUnderEachOther() {
        verify(plainOnes.implicitWidth < ones.implicitWidth, "the family of figures is missing");
        for (const weight of [Font.Normal, Font.Medium, Font.DemiBold]) {
            ones.font.weight = eights.font.weight = weight;
            compare(ones.implicitWidth, eights.implicitWidth);
        }
    }

    function test_motionStopsWhereItIsNotWanted() {
        verify(Theme.duration > 0 && Theme.duration <= 150);
        Theme.reducesMotion = true;
        compare(Theme.duration, 0);
        Theme.reducesMotion = false;
    }

    ThemedWindow {
        Rectangle {
            id: ground

            color: palette.base
        }
    }

    function test_thePaletteFollowsTheThemeWhileRunning() {
        compare(ground.color, Theme.surface);
        Theme.isDark = true;
        compare(ground.color, Theme.surface);
        compare(ground.palette.windowText, Theme.text);
    }
}
