import QtQuick 2.14
import QtTest 1.15
import "qrc:/"

TestCase {
    id: test

    readonly property var described: ({
        value: 0, precision: 0, valueAnimationInterval: 400
    })

    property var seen: []

    name: "ZoProgressBar"
    when: windowShown
    visible: true
    width: 500
    height: 100

    Component {
        id: fixture
        ZoProgressBar {
            x: 10
            y: 10
            width: 300
            onValueChanged: test.seen.push(value)
        }
    }

    Component {
        id: bound
        ZoProgressBar {
            width: 300
            value: uninstallMgr.valProgress
        }
    }

    function init() {
        seen = []
        fake.reset()
    }

    function make(properties) {
        var bar = createTemporaryObject(fixture, test, properties || {})
        verify(bar)
        return bar
    }

    function test_defaults() {
        var bar = make()
        for (var name in described) {
            compare(bar[name], described[name], name)
        }
    }

    function test_fillFollowsTheAnimatedValue() {
        var bar = make()
        var fill = findChild(bar, "progressFill")
        var track = findChild(bar, "progressTrack")
        compare([fill.width, track.width], [0, 300])
        // A larger radius looks the same.
        compare([fill.radius, track.radius], [2, 2])
        bar.value = 100
        for (var step = 0; step < 5; ++step) {
            var before = bar.value
            tryVerify(function() { return bar.value > before || bar.value === 100 })
            fuzzyCompare(fill.width, bar.value * 3, 0.0001)
        }
        // Do not wait for the value: tryCompare accepts 100 - 0.00001, where the width is still
        // 0.00003 below 300.
        tryCompare(fill, "width", 300)
        bar.width = 200
        compare([fill.width, track.width], [200, 200])
    }

    function test_passesThroughNumbersBetween() {
        var bar = make()
        bar.value = 100
        tryCompare(bar, "value", 100)
        verify(seen.length > 3, seen)
        verify(seen[0] > 0 && seen[0] < 100, seen)
        compare(seen[seen.length - 1], 100)
        for (var i = 1; i < seen.length; ++i) {
            verify(seen[i] >= seen[i - 1], seen)
        }
    }

    function test_animation() {
        compareAnimation(make(), 400)
        compareAnimation(make({ valueAnimationInterval: 70 }), 70)
    }

    function compareAnimation(bar, duration) {
        var behaviors = probe.below(bar, "QQuickBehavior")
        compare(behaviors.length, 1) // so the fill's width is not animated once more
        bar.value = 1 // the animation exists from the first change on
        compare(behaviors[0].animation.duration, duration)
        compare(behaviors[0].animation.easing.type, Easing.OutQuart)
    }

    function test_followsTheController() {
        var bar = createTemporaryObject(bound, test)
        uninstallMgr.valProgress = 40
        tryCompare(bar, "value", 40)
        uninstallMgr.valProgress = 100
        tryCompare(bar, "value", 100)
        uninstallMgr.valProgress = 0
        tryCompare(bar, "value", 0)
    }

    function test_accessible() {
        var bar = make()
        compare(probe.accessible(bar).role, Accessible.ProgressBar)
        bar.value = 40
        tryCompare(bar, "value", 40)
        compare(probe.accessible(bar).name, "40 %")
    }
}
