pragma Singleton

import QtQuick

/// Every measure and colour of the window. Texts in `text`, `secondaryText`, `accentText`,
/// `dangerText`, `warningText` and `successText` reach a contrast of 4.5:1 on every ground.
QtObject {
    /// Set by the application from the desktop's appearance.
    property bool isDark: false
    property bool reducesMotion: false

    // Grounds
    readonly property color window: isDark ? "#1d1f24" : "#f5f6f8"
    readonly property color sidebar: isDark ? "#17191d" : "#ebedf1"
    /// Tables, cards, sheets and menus.
    readonly property color surface: isDark ? "#25282e" : "#ffffff"
    readonly property color control: isDark ? "#30343c" : "#ffffff"
    readonly property color controlHovered: isDark ? "#383d46" : "#f2f4f7"
    readonly property color controlPressed: isDark ? "#2a2e35" : "#e6e9ee"
    /// The chosen part of a switch.
    readonly property color raised: isDark ? "#464c58" : "#ffffff"
    /// Laid over whatever lies beneath a flat button or a row.
    readonly property color hover: isDark ? "#14ffffff" : "#0d1b1e25"
    readonly property color press: isDark ? "#24ffffff" : "#1a1b1e25"
    /// Hairlines between areas, and around cards and buttons.
    readonly property color line: isDark ? "#373b44" : "#dde0e6"
    /// Edges that tell a control from its ground (3:1): tick boxes and fields.
    readonly property color outline: isDark ? "#8a929f" : "#7d8491"
    readonly property color track: isDark ? "#3b404a" : "#e2e5ea"
    /// Over the window behind a sheet.
    readonly property color shade: isDark ? "#99000000" : "#66161a22"

    // Texts and icons
    readonly property color text: isDark ? "#eceef2" : "#1b1e25"
    readonly property color secondaryText: isDark ? "#a9b0bc" : "#545b69"
    readonly property color disabledText: isDark ? "#6b727e" : "#9aa1ad"

    // Meaning: one accent; red only for what removes or kills.
    readonly property color accent: isDark ? "#3069d0" : "#2a64c7"
    readonly property color accentHovered: isDark ? "#2c61c2" : "#2459b4"
    readonly property color accentPressed: isDark ? "#2756ae" : "#1e4e9f"
    readonly property color accentText: isDark ? "#8db6ff" : "#2259b8"
    /// What is selected, and the share bars beneath figures.
    readonly property color accentSoft: isDark ? "#2a3f66" : "#dfe9fb"
    readonly property color shareBar: isDark ? "#5b8fe8" : "#5d8fe0"
    readonly property color danger: isDark ? "#c93a41" : "#bf2c33"
    readonly property color dangerHovered: isDark ? "#bb343b" : "#ab252c"
    readonly property color dangerPressed: isDark ? "#a72d34" : "#951f26"
    readonly property color dangerText: isDark ? "#ff9a9a" : "#b3262d"
    readonly property color dangerSoft: isDark ? "#4a2629" : "#fbe6e6"
    readonly property color warningText: isDark ? "#f0c674" : "#7a4d00"
    readonly property color warningSoft: isDark ? "#3f351f" : "#fdf0d2"
    readonly property color successText: isDark ? "#7fd09b" : "#1d6b3c"
    /// On `accent` and `danger`.
    readonly property color accentInk: "#ffffff"
    readonly property color focusRing: isDark ? "#8db6ff" : "#2a64c7"

    /// Calm grounds of treemap cells and tiles, all readable under `categoryText`.
    readonly property list<color> categories: isDark
        ? ["#2f568c", "#1f665f", "#406c36", "#6b5919", "#7f5026", "#7e4059", "#594a8e", "#4b525e"]
        : ["#a8c7f2", "#9bd8d0", "#b5d9a1", "#eed88c", "#f3c295", "#f0b6cb", "#c9baf0", "#c6cdd8"]
    readonly property color categoryText: isDark ? "#f2f4f7" : "#1b1e25"

    /// The colour of the item at `index`: the same on every screen, again from the first after the last.
    function category(index: int): color {
        return categories[index % categories.length];
    }

    // Measures: a grid of 8 px.
    readonly property int halfSpacing: 4
    readonly property int spacing: 8
    readonly property int wideSpacing: 16
    readonly property int pageMargin: 24
    readonly property int controlHeight: 32
    readonly property int rowHeight: 32
    readonly property int toolbarHeight: 56
    readonly property int smallRadius: 4
    readonly property int radius: 6
    readonly property int cardRadius: 10

    // Three text sizes, in pixels of the 100 % scale.
    readonly property string family: "Inter"
    /// Of numbers that stand in columns: figures of one width.
    readonly property string figureFamily: "Tolvane Figures"
    readonly property int smallText: 12
    readonly property int bodyText: 14
    readonly property int titleText: 20
    /// Of the one figure that a whole screen is about.
    readonly property int heroText: 40

    /// Of every transition, in milliseconds; one duration keeps the whole window in step.
    readonly property int duration: reducesMotion ? 0 : 120
}
