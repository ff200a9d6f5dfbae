import QtQml 2.14

// The room between a button's edge and its label.
QtObject {
    property int left: 4
    property int top: 4
    property int right: 4
    property int bottom: 4
}
