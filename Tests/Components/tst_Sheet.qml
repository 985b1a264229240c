import QtQuick
import QtTest
import Tolvane.Components

Item {
    id: root

    width: 700
    height: 500

    PlainButton { id: behind; text: "Behind" }

    Sheet {
        id: sheet

        isShown: false
        title: "<b>Review</b>"
        defaultButton: second
        buttons: [
            PlainButton { id: first; text: "Cancel"; onClicked: sheet.dismissed() },
            PrimaryButton { id: second; text: "Move" }
        ]

        FilterField { id: inner }
    }
    ConfirmDialog {
        id: dialog

        isShown: false
        isDestructive: true
        title: "Kill?"
        confirmText: "Kill"
    }
    SignalSpy { id: dismissals; target: sheet; signalName: "dismissed" }
    SignalSpy { id: moves; target: second; signalName: "clicked" }
    SignalSpy { id: behinds; target: behind; signalName: "clicked" }
    SignalSpy { id: confirmations; target: dialog; signalName: "confirmed" }
    SignalSpy { id: refusals; target: dialog; signalName: "dismissed" }

    TestCase {
        name: "Sheet"
        when: windowShown

        function init() {
            for (const spy of [dismissals, moves, behinds, confirmations, refusals]) {
                spy.clear();
            }
        }
        function cleanup() {
            sheet.isShown = dialog.isShown = false;
            tryCompare(sheet, "visible", false);
            tryCompare(dialog, "visible", false);
        }

        function test_theFocusStaysInside() {
            sheet.isShown = true;
            tryCompare(second, "visualFocus", true);
            const seen = new Set();
            for (let i = 0; i < 7; ++i) {
                keyClick(Qt.Key_Tab);
                verify(!behind.activeFocus);
                seen.add(first.activeFocus ? "first" : second.activeFocus ? "second" : inner.activeFocus ? "inner" : "lost");
            }
            compare([...seen].sort(), ["first", "inner", "second"]);
            mouseClick(behind);
            compare(behinds.count, 0);
        }

        function test_escapeAsksAndTheOwnerDecides() {
            sheet.isShown = true;
            tryCompare(sheet, "opened", true);
            keyClick(Qt.Key_Escape);
            compare(dismissals.count, 1);
            verify(sheet.visible);
            sheet.isShown = false;
            tryCompare(sheet, "visible", false);
        }

        function test_returnPressesTheDefaultFromAnywhere() {
            sheet.isShown = true;
            tryCompare(sheet, "opened", true);
            inner.forceActiveFocus();
            keyClick(Qt.Key_Return);
            compare(moves.count, 1);
            second.enabled = false;
            inner.forceActiveFocus();
            keyClick(Qt.Key_Return);
            compare(moves.count, 1);
            second.enabled = true;
        }

        function test_returnNeverDestroys() {
            dialog.isShown = true;
            tryCompare(dialog, "opened", true);
            keyClick(Qt.Key_Return);
            compare([confirmations.count, refusals.count], [0, 1]);
            mouseClick(findChild(dialog.contentItem, "dialogDestroy"));
            compare(confirmations.count, 1);
            dialog.isDestructive = false;
            findChild(dialog.contentItem, "dialogCancel").focus = false;
            keyClick(Qt.Key_Escape);
            compare(refusals.count, 2);
        }
    }
}
