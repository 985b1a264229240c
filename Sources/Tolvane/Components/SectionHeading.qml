import QtQuick

/// What heads the rows of a section of a DataTable.
ElidedLabel {
    required property string section

    width: ListView.view?.width ?? 0
    height: 32
    leftPadding: 16
    rightPadding: 14
    text: section
    color: Theme.secondaryText
    font.pixelSize: Theme.smallText
    font.weight: Font.DemiBold
    verticalAlignment: Text.AlignBottom
    bottomPadding: 4
    Accessible.role: Accessible.Heading
}
