import QtQuick
import Tolvane.Components

Ground {
    Banner {
        width: parent.width
        kind: Banner.Success
        text: "Moved 12 items to the Trash (3.4 GB)."
        actionText: "Undo"
    }
    Banner {
        width: parent.width
        kind: Banner.Warning
        text: "The scan was cancelled: figures are of what was read until then, in /home/anna/Projects/a/long/path/that/does/not/fit/on/one/line/of/this/window."
        actionText: "Scan again"
    }
    Banner { width: parent.width; text: "Some folders could not be read."; isDismissible: false }
    ProgressPanel {
        width: parent.width
        title: "Measuring Home"
        path: "/home/anna/.local/share/containers/storage/overlay/0123456789abcdef0123456789abcdef/diff/usr/lib/python3/dist-packages/x.py"
        counts: "1,204,311 items, 123.4 GB"
        elapsed: "0:42"
        remaining: "about 2 minutes left"
        fraction: 0.43
    }
    ProgressPanel { width: parent.width; title: "Measuring File System"; counts: "12 items, 0 bytes"; elapsed: "0:01" }
    EmptyState {
        width: parent.width
        height: 320
        iconName: "space-analysis"
        title: "See what fills a disk"
        text: "Choose a folder to measure. Nothing is changed until you review it."
        actionText: "Choose folder…"
        note: "Reads names and sizes only."
    }
    HistoryGraph {
        width: parent.width
        values: Array.from({length: 100}, (_, i) => i < 12 || i > 60 && i < 68 ? -1 : 0.5 + 0.4 * Math.sin(i / 9))
        startText: "5 minutes ago"
        endText: "Now"
        summary: "Between 10 % and 90 %"
    }
}
