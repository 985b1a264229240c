import QtQuick
import QtTest
import Tolvane.Components

Item {
    width: 700
    height: 400

    ListModel {
        id: rows

        Component.onCompleted: {
            for (let i = 0; i < 8192; ++i) {
                append({name: "<b>" + i, sizeText: i + " B"});
            }
        }
    }
    ScrollPage {
        id: page

        anchors.fill: parent
        contentHeight: 1000

        DataTable {
            id: table

            width: 610
            height: 400
            model: rows
            sortKey: 7
            isDescending: true
            accessibleRole: "name"

            DataColumn { id: nameColumn; title: "Name"; role: "name"; sortKey: 3; fills: true; minimumWidth: 100 }
            DataColumn { id: sizeColumn; title: "Size"; role: "sizeText"; sortKey: 7; width: 120; isFigure: true }
            DataColumn { title: "Plain"; role: "name"; width: 80 }
        }
    }
    SignalSpy { id: sorts; target: table; signalName: "sortRequested" }
    SignalSpy { id: clicks; target: table; signalName: "rowClicked" }
    SignalSpy { id: opens; target: table; signalName: "rowActivated" }
    SignalSpy { id: toggles; target: table; signalName: "rowToggled" }
    SignalSpy { id: menus; target: table; signalName: "contextMenuRequested" }

    TestCase {
        readonly property Item list: findChild(table, "tableRows")

        name: "DataTable"
        when: windowShown

        function init() {
            for (const spy of [sorts, clicks, opens, toggles, menus]) {
                spy.clear();
            }
            sizeColumn.width = 120;
            table.showRow(0);
            waitForRendering(table);
        }
        function texts(item) {
            let found = [];
            if (item.textFormat !== undefined) {
                compare(item.textFormat, Text.PlainText);
                found.push(item.text);
            }
            for (let i = 0; i < item.children.length; ++i) {
                found = found.concat(texts(item.children[i]));
            }
            return found;
        }

        function test_onlyRowsInSightExistAndShowTheirOwnTexts() {
            compare(texts(list.itemAtIndex(1)), ["<b>1", "1 B", "<b>1"]);
            verify(list.contentItem.children.length < 40);
            table.showRow(8191);
            waitForRendering(table);
            compare(texts(list.itemAtIndex(8191)), ["<b>8191", "8191 B", "<b>8191"]);
            compare(list.itemAtIndex(8191).Accessible.name, "<b>8191");
            verify(list.contentItem.children.length < 80);
        }

        function test_headersAskForTheirOrder() {
            mouseClick(findChild(table, "header0"));
            mouseClick(findChild(table, "header2"));
            compare([sorts.count, sorts.signalArguments[0][0]], [1, 3]);
            verify(findChild(table, "header1").isSorted);
            findChild(table, "header0").forceActiveFocus(Qt.TabFocusReason);
            keyClick(Qt.Key_Right);
            keyClick(Qt.Key_Return);
            compare(sorts.signalArguments[1][0], 7);
            keyClick(Qt.Key_Right, Qt.ShiftModifier);
            compare(sizeColumn.width, 136);
        }

        function test_edgesResizeAndTheFirstColumnGivesWay() {
            const edge = table.widthOf(nameColumn);
            mousePress(table, edge, 10);
            mouseMove(table, edge - 20, 10);
            mouseMove(table, edge - 60, 10);
            compare([sizeColumn.width, table.widthOf(nameColumn)], [180, edge - 60]);
            mouseMove(table, edge + 300, 10);
            mouseRelease(table, edge + 300, 10);
            compare([sizeColumn.width, sorts.count], [sizeColumn.minimumWidth, 0]);
        }

        function test_theKeyboardReachesEverything() {
            list.forceActiveFocus(Qt.TabFocusReason);
            compare(table.currentIndex, 0);
            keyClick(Qt.Key_Down);
            keyClick(Qt.Key_Space);
            keyClick(Qt.Key_Return);
            keyClick(Qt.Key_Menu);
            keyClick(Qt.Key_F10, Qt.ShiftModifier);
            compare([toggles.signalArguments[0][0], opens.signalArguments[0][0], menus.signalArguments[0][0], menus.count], [1, 1, 1, 2]);
            keyClick(Qt.Key_End);
            compare(table.currentIndex, 8191);
            keyClick(Qt.Key_PageUp);
            verify(table.currentIndex < 8191 && table.currentIndex > 8170);
            keyClick(Qt.Key_Home);
            compare([table.currentIndex, list.contentY], [0, -list.topMargin]);
            verify(table.hasKeyboard);
        }

        function test_theMouseChoosesOpensAndAsksForAMenu() {
            mouseClick(list.itemAtIndex(3), 20, 10, Qt.LeftButton, Qt.ControlModifier);
            compare([table.currentIndex, clicks.signalArguments[0][0], clicks.signalArguments[0][1]], [3, 3, Qt.ControlModifier]);
            verify(!table.hasKeyboard);
            mouseDoubleClickSequence(list.itemAtIndex(4));
            compare(opens.signalArguments[0][0], 4);
            mouseClick(list.itemAtIndex(5), 50, 10, Qt.RightButton);
            compare([table.currentIndex, menus.signalArguments[0][0], menus.signalArguments[0][1]], [5, 5, 50]);
        }

        function test_theWheelStopsAtBothEndsAndThenTurnsThePage() {
            const top = list.contentY;
            mouseWheel(list, 50, 50, 0, 120);
            compare(list.contentY, top);
            mouseWheel(list, 50, 50, 0, -120);
            compare(list.contentY, top + 96);
            mouseWheel(list, 50, 50, 0, -120 * 9000);
            compare([list.atYEnd, page.contentY], [true, 0]);
            mouseWheel(list, 50, 50, 0, -120);
            compare(page.contentY, 96);
            page.contentY = 0;
        }
    }
}
