import QtQml 2.14
import QtQuick 2.14

// How a button of Qt Quick Controls 1 looks: a background and a label.
QtObject {
    property Item control: null
    property Component background: null
    property Component label: null
    property StylePadding padding: StylePadding {}
}
