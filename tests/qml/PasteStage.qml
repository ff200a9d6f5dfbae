import QtQuick 2.14
import "qrc:/"

// A feedback page that finds an object `clipboard` round it.
Item {
    property alias clipboardText: clipboard.text

    width: 576
    height: 191

    QtObject {
        id: clipboard
        property string text: ""
    }

    SubmitAdviceComponent {
        anchors.fill: parent
    }
}
