import QtQuick
import QtTest
import Tolvane.Components

Item {
    id: root

    property int escapes: 0

    width: 640
    height: 640
    Keys.onEscapePressed: ++escapes

    Column {
        spacing: 8

        TriStateBox { id: box; mark: TriStateBox.None }
        DestructiveButton { id: button; text: "Kill" }
        Banner { id: banner; width: 600; text: ""; actionText: "Undo" }
        SegmentedSwitch { id: segments; currentIndex: 0; segments: [{icon: "view-grid", text: "Grid"}, {icon: "view-list", text: "List"}] }
        FilterField { id: field }
        ProgressPanel { id: panel; width: 600; title: "<b>Home</b>"; path: "/<b>x</b>"; counts: "<b>1</b>" }
        Card { id: card; iconName: "house"; text: "<b>Home</b>"; note: "<b>/home</b>" }
        EmptyState { id: empty; width: 600; iconName: "folder"; title: "<b>Nothing</b>"; text: "<b>here</b>"; actionText: "<b>Go</b>"; note: "<b>n</b>" }
    }

    SignalSpy { id: boxClicks; target: box; signalName: "clicked" }
    SignalSpy { id: kills; target: button; signalName: "clicked" }
    SignalSpy { id: undos; target: banner; signalName: "actionTriggered" }
    SignalSpy { id: dismissals; target: banner; signalName: "dismissed" }
    SignalSpy { id: choices; target: segments; signalName: "activated" }
    SignalSpy { id: cancels; target: panel; signalName: "cancelRequested" }

    TestCase {
        name: "Controls"
        when: windowShown

        function init() {
            for (const spy of [boxClicks, kills, undos, dismissals, choices, cancels]) {
                spy.clear();
            }
        }

        function test_aBoxAsksAndNeverTicksItself_data() {
            return [{tag: "none", mark: TriStateBox.None, asks: 1, checked: false, mixed: false},
                    {tag: "partial", mark: TriStateBox.Partial, asks: 1, checked: false, mixed: true},
                    {tag: "all", mark: TriStateBox.All, asks: 1, checked: true, mixed: false},
                    {tag: "included", mark: TriStateBox.Included, asks: 0, checked: true, mixed: false}];
        }
        function test_aBoxAsksAndNeverTicksItself(data) {
            box.mark = data.mark;
            mouseClick(box);
            compare(boxClicks.count, data.asks);
            box.forceActiveFocus(Qt.TabFocusReason);
            keyClick(Qt.Key_Space);
            compare(boxClicks.count, 2 * data.asks);
            compare(box.mark, data.mark);
            compare(box.Accessible.checked, data.checked);
            compare(box.Accessible.checkStateMixed, data.mixed);
        }

        function test_buttonsObeyMouseSpaceAndReturnUnlessDisabled() {
            for (const [isEnabled, expected] of [[true, 3], [false, 0]]) {
                kills.clear();
                button.enabled = isEnabled;
                button.forceActiveFocus(Qt.TabFocusReason);
                compare(button.visualFocus, isEnabled);
                mouseClick(button);
                keyClick(Qt.Key_Space);
                keyClick(Qt.Key_Return);
                compare(kills.count, expected);
            }
            button.enabled = true;
        }

        function test_aBannerTakesRoomOnlyWithAText() {
            compare(banner.implicitHeight, 0);
            verify(!banner.visible);
            banner.text = "<b>Moved</b> 2 items to the Trash.";
            verify(banner.implicitHeight > 0);
            expectPlain(banner, 1);
            waitForRendering(banner);
            mouseClick(findChild(banner, "bannerAction"));
            compare([undos.count, dismissals.count], [1, 0]);
            mouseClick(findChild(banner, "bannerDismiss"));
            compare([undos.count, dismissals.count], [1, 1]);
            banner.text = "";
            compare(banner.implicitHeight, 0);
        }

        function test_aSwitchAsksByClickAndArrow() {
            waitForRendering(segments);
            mouseClick(findChild(segments, "segment1"));
            compare(choices.signalArguments[0][0], 1);
            compare(segments.currentIndex, 0);
            segments.forceActiveFocus(Qt.TabFocusReason);
            keyClick(Qt.Key_Left);
            compare(choices.count, 1);
            keyClick(Qt.Key_Right);
            compare(choices.signalArguments[1][0], 1);
        }

        function test_escapeEmptiesAFilterBeforeItReachesTheScreen() {
            mouseClick(field);
            for (const key of "node") {
                keyClick(key);
            }
            compare(field.text, "node");
            keyClick(Qt.Key_Escape);
            compare([field.text, root.escapes], ["", 0]);
            keyClick(Qt.Key_Escape);
            compare(root.escapes, 1);
            keyClick("x");
            mouseClick(findChild(field, "filterClear"));
            compare(field.text, "");
            verify(field.activeFocus);
        }

        function test_progressKeepsItsPlaceAndCancels() {
            const height = panel.implicitHeight;
            panel.path = "";
            panel.remaining = "about a minute left";
            panel.fraction = 0.5;
            compare(panel.implicitHeight, height);
            mouseClick(findChild(panel, "progressCancel"));
            compare(cancels.count, 1);
            panel.path = "/<b>x</b>";
        }

        // Every text that holds markup shows it as it stands.
        function expectPlain(item, atLeast) {
            let found = 0;
            const visit = place => {
                if (place.textFormat !== undefined && String(place.text).includes("<b>")) {
                    compare(place.textFormat, Text.PlainText, place.text);
                    ++found;
                }
                for (let i = 0; i < place.children.length; ++i) {
                    visit(place.children[i]);
                }
            };
            visit(item);
            verify(found >= atLeast, found + " texts");
        }
        function test_markupInNamesIsText() {
            expectPlain(panel, 3);
            expectPlain(card, 2);
            expectPlain(empty, 4);
        }
    }
}
