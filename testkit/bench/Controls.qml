import QtQuick 2.14
import QtQuick.Window 2.14
import QtQuick.Controls 2.14
import QtQuick.Controls 1.4 as Old
import QtQuick.Controls.Styles 1.4 as Old
import QtQuick.Layouts 1.15
import QtQuick.Shapes 1.15
import QtGraphicalEffects 1.0 as Effects

// Each Qt control that the interface uses, and none of our types.
ApplicationWindow {
    flags: Qt.Window | Qt.FramelessWindowHint | Qt.WindowMinMaxButtonsHint
    color: "#00000000"
    visible: true
    width: 640
    height: 408

    Rectangle {
        anchors.fill: parent
    }

    StackLayout {
        anchors.fill: parent
        anchors.margins: 32

        ColumnLayout {
            Label {
                text: "Please tell us why"
                wrapMode: Text.WordWrap
            }

            ButtonGroup {
                id: group
            }

            Column {
                Repeater {
                    model: 1

                    RadioButton {
                        text: "A reason"
                        ButtonGroup.group: group
                    }
                }
            }

            ScrollView {
                Layout.preferredHeight: 80
                Layout.fillWidth: true
                clip: true

                TextArea {
                    placeholderText: "A text"
                    wrapMode: Text.Wrap
                }
            }

            Shape {
                Layout.preferredHeight: 24
                Layout.preferredWidth: 100

                ShapePath {
                    strokeWidth: -1
                    fillGradient: LinearGradient {
                        x2: 100
                        GradientStop { position: 0.0; color: "#DFCDFF" }
                        GradientStop { position: 1.0; color: "#C6D9FF" }
                    }
                    PathLine { x: 100; y: 0 }
                    PathArc { x: 100; y: 24; radiusX: 12; radiusY: 12 }
                    PathLine { x: 0; y: 24 }
                }
            }

            Loader {
                sourceComponent: Text {
                    text: "<a href=x>A link</a>"
                    textFormat: Text.RichText
                }
            }

            RowLayout {
                Layout.fillWidth: true

                FocusScope {
                    Layout.fillWidth: true

                    MouseArea {
                        anchors.fill: parent
                    }
                }

                Image {
                }

                BorderImage {
                }

                Old.Button {
                    id: button

                    implicitWidth: 100
                    implicitHeight: 28
                    text: metrics.text

                    style: Old.ButtonStyle {
                        background: Rectangle {
                            radius: 4
                            // The colour of the program's button: the benchmark waits for it.
                            color: "#1F6FFF"
                        }
                        label: Text {
                            text: button.text
                        }
                    }

                    TextMetrics {
                        id: metrics
                        text: "A button"
                    }

                    Behavior on opacity {
                        NumberAnimation {
                        }
                    }
                }
            }
        }
    }
}
