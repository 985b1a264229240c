import QtQuick
import QtTest
import Tolvane.Components

Item {
    width: 900
    height: 400

    ListModel {
        id: crumbs

        ListElement { name: "Home"; pathText: "/home/anna" }
        ListElement { name: "Projects"; pathText: "/home/anna/Projects" }
        ListElement { name: "<b>tolvane</b>"; pathText: "/home/anna/Projects/tolvane" }
        ListElement { name: "Sources"; pathText: "/home/anna/Projects/tolvane/Sources" }
    }
    PathBar {
        id: bar

        model: crumbs
    }
    SignalSpy { id: activated; target: bar; signalName: "activated" }

    TestCase {
        name: "PathBar"
        when: windowShown

        function init() {
            activated.clear();
            bar.width = 900;
            waitForRendering(bar);
        }
        function crumb(index) {
            return findChild(bar, "crumb" + index);
        }
        function shown() {
            return [0, 1, 2, 3].filter(index => crumb(index).visible && !crumb(index).isOverflow);
        }

        function test_everyCrumbIsClickable() {
            compare(shown(), [0, 1, 2, 3]);
            for (const index of [0, 1, 2, 3]) {
                mouseClick(crumb(index));
                compare(activated.signalArguments[index][0], index);
            }
        }

        function test_theMiddleHidesWhereThereIsNoRoom() {
            for (let width = 900; width >= 180; width -= 20) {
                bar.width = width;
                const visible = shown();
                compare([visible[0], visible[visible.length - 1]], [0, 3]);
                compare(crumb(1).isOverflow, visible.length < 4);
                tryVerify(() => crumb(3).x + crumb(3).width <= width + 0.5);
            }
            compare(shown(), [0, 3]);
        }

        function test_theHiddenOnesAreListed() {
            bar.width = 240;
            const menu = findChild(bar, "pathMenu");
            waitForRendering(bar);
            mouseClick(crumb(1));
            tryCompare(menu, "opened", true);
            compare(activated.count, 0);
            compare([menu.count, menu.itemAt(0).text, menu.itemAt(1).text], [2, "Projects", "<b>tolvane</b>"]);
            mouseClick(menu.itemAt(1));
            compare(activated.signalArguments[0][0], 2);
            tryCompare(menu, "visible", false);
        }

        function test_arrowsMoveAmongTheVisibleOnes() {
            bar.width = 240;
            crumb(3).forceActiveFocus(Qt.TabFocusReason);
            keyClick(Qt.Key_Left);
            verify(crumb(1).visualFocus);
            keyClick(Qt.Key_Left);
            keyClick(Qt.Key_Left);
            verify(crumb(0).visualFocus);
            keyClick(Qt.Key_Return);
            compare(activated.signalArguments[0][0], 0);
        }
    }
}
