import QtQuick 2.14
import QtTest 1.15
import "qrc:/"

// The gradient of a rounded rectangle: its colours along it, and its round, smooth corners.
TestCase {
    id: test

    name: "ZoGradientFill"
    when: windowShown
    visible: true
    width: 200
    height: 100

    Component {
        id: fixture
        ZoGradientFill {
            width: 100
            height: 20
            radius: 10
            startColor: "#ff0000"
            endColor: "#0000ff"
        }
    }

    function channels(item, x, y) {
        var colour = Qt.lighter(probe.pixel(item, x, y), 1)
        return [colour.r * 255, colour.g * 255, colour.b * 255]
    }

    function test_defaults() {
        var fill = createTemporaryObject(Qt.createComponent("qrc:/ZoGradientFill.qml"), test)
        compare(fill.radius, 0)
        verify(Qt.colorEqual(fill.startColor, "#00000000"))
        verify(Qt.colorEqual(fill.endColor, "#00000000"))
    }

    function test_runsFromLeftToRight_data() {
        return [{ tag: "start", x: 0, share: 0 }, { tag: "quarter", x: 25, share: 0.25 },
                { tag: "middle", x: 50, share: 0.5 }, { tag: "end", x: 99, share: 1 }]
    }

    function test_runsFromLeftToRight(row) {
        var fill = createTemporaryObject(fixture, test)
        ;[8, 10, 12].forEach(function(y) {
            var seen = channels(fill, row.x, y)
            fuzzyCompare(seen[0], 255 * (1 - row.share), 6)
            compare(seen[1], 0)
            fuzzyCompare(seen[2], 255 * row.share, 6)
        })
    }

    function test_cornersAreRound() {
        var fill = createTemporaryObject(fixture, test)
        ;[[0, 0], [99, 0], [0, 19], [99, 19], [1, 2], [98, 17]].forEach(function(corner) {
            compare(probe.pixel(fill, corner[0], corner[1]), "", corner)
        })
        ;[[10, 0], [89, 0], [10, 19], [89, 19], [0, 10], [99, 9]].forEach(function(edge) {
            verify(probe.pixel(fill, edge[0], edge[1]) !== "", edge)
        })
    }

    function test_aSquareOneIsFilledToItsCorners() {
        var fill = createTemporaryObject(fixture, test, { radius: 0 })
        verify(probe.pixel(fill, 0, 0) !== "")
        verify(probe.pixel(fill, 99, 19) !== "")
    }
}
