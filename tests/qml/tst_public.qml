import QtQuick 2.14
import QtTest 1.15
import "qrc:/public.js" as Public
import "parts.js" as Parts

TestCase {
    id: test

    readonly property var windowLook: ({
        winRadius: 8, winBorderWidth: 1, winBorderColor: "#e1e7ef", winShadowColor: "#48475963",
        winShadowBlur: 8
    })
    readonly property var light: ["#E0EAFC", "#C5D5F3", "#A6BDE6", "#E9ECF2"]
    readonly property var white: ["#FFFFFF", "#E8F0FF", "#D2E2FF", "#FFFFFF"]
    readonly property var blue: ["#1F6FFF", "#227AFF", "#1B63FF", "#E9ECF2"]
    readonly property var steady: ["#1F6FFF", "#1F6FFF", "#1F6FFF", "#E9ECF2"]
    readonly property var tables: ({
        rpInfo: { fill: light, border: blue, width: 0, text: ["#1F6FFF", "#B6B8BD"] },
        nrpInfo: { fill: light, border: blue, width: 0, text: ["#1F6FFF", "#B6B8BD"] },
        nrpInfo_submit: { fill: white, border: steady, width: 1, text: ["#1F6FFF", "#B6B8BD"] },
        drpInfo: { fill: blue, border: blue, width: 0, text: ["#FFFFFF", "#B6B8BD"] },
        rplInfo: { fill: light, border: blue, width: 0, text: ["#1F6FFF", "#B6B8BD"] }
    })

    name: "public"

    function init() {
        fake.reset()
    }

    function test_windowLook() {
        for (var name in windowLook) {
            compare(Public[name], windowLook[name], name)
        }
    }

    function test_tables_data() {
        return Object.keys(tables).map(function(name) {
            return { tag: name, table: Public[name], expected: tables[name] }
        })
    }

    function test_tables(row) {
        var states = ["normal", "hovered", "pressed", "disabled"]
        states.forEach(function(state, i) {
            compare(row.table.bgColor[state], row.expected.fill[i], "fill " + state)
            compare(row.table.borderColor[state], row.expected.border[i], "border " + state)
        })
        compare(row.table.bgColor.opacity.enabled, 1)
        compare(row.table.bgColor.opacity.disabled, 1)
        compare(row.table.borderWidth, row.expected.width)
        compare(row.table.textColor.enabled, row.expected.text[0])
        compare(row.table.textColor.disabled, row.expected.text[1])
        compare(row.table.bgRadius, 4)
        compare(row.table.gradient, undefined)
    }

    function test_tablesAreNotShared() {
        verify(Public.rpInfo !== Public.nrpInfo)
        verify(Public.nrpInfo !== Public.rplInfo)
    }

    function test_sendUserInfoEx_data() {
        return [
            { tag: "absent", param: undefined, attr: "" },
            { tag: "null", param: null, attr: "" },
            { tag: "empty text", param: "", attr: "" },
            { tag: "object", param: { answer: "a \"b\"", n: [1, 2] },
              attr: '{"answer":"a \\"b\\"","n":[1,2]}' },
            { tag: "empty object", param: {}, attr: "{}" },
            { tag: "JSON text", param: ' { "url" : "x", "n": 1.0 } ', attr: '{"url":"x","n":1}' },
            { tag: "JSON text with text outside ASCII", param: '{"a":"\\u00e9\u4e2d"}',
              attr: '{"a":"\u00e9\u4e2d"}' },
            { tag: "JSON number", param: "12", attr: "12" },
            { tag: "JSON null", param: "null", attr: "null" },
            { tag: "no JSON", param: "just text, \"quoted", attr: "just text, \"quoted" },
            { tag: "blank", param: " ", attr: " " },
            { tag: "number", param: 0, attr: "0" },
            { tag: "false", param: false, attr: "false" },
            { tag: "list", param: ["a"], attr: '["a"]' }
        ]
    }

    function test_sendUserInfoEx(row) {
        Public.sendUserInfoEx("W", "A", row.param)
        compare(fake.asked, [Parts.event("W", "A", row.attr)])
    }

    function test_sendUserInfoExWithTwoArguments() {
        Public.sendUserInfoEx("UninstallPop", "Click_Uninstall")
        compare(fake.asked, [Parts.event("UninstallPop", "Click_Uninstall")])
    }

    function test_source_data() {
        return [
            { tag: "absent", source: undefined, src: "" },
            { tag: "null", source: null, src: "" },
            { tag: "empty", source: "", src: "" },
            { tag: "text", source: "menu", src: "menu" }
        ]
    }

    function test_source(row) {
        Public.sendUserInfoEx("W", "A", { a: 1 }, row.source)
        Public.sendUserInfo("W", "A", [{ key: "k", value: "v" }], row.source)
        compare(fake.asked, [Parts.event("W", "A", '{"a":1}', row.src),
                             Parts.event("W", "A", '{"k":"v"}', row.src)])
    }

    function test_sendUserInfo_data() {
        return [
            { tag: "absent", list: undefined, attr: "" },
            { tag: "null", list: null, attr: "" },
            { tag: "empty text", list: "", attr: "" },
            { tag: "empty list", list: [], attr: "" },
            { tag: "one", list: [{ key: "answer", value: "x" }], attr: '{"answer":"x"}' }
        ]
    }

    function test_sendUserInfo(row) {
        Public.sendUserInfo("W", "A", row.list)
        compare(fake.asked, [Parts.event("W", "A", row.attr)])
    }

    function test_makeJsonAttr_data() {
        return [
            { tag: "empty", list: [], text: "" },
            { tag: "absent", list: undefined, text: "" },
            { tag: "null", list: null, text: "" },
            { tag: "one", list: [{ key: "a", value: "b" }], text: '{"a":"b"}' },
            { tag: "two", list: [{ key: "a", value: "b" }, { key: "c", value: "d" }],
              text: '{"a":"b","c":"d"}' },
            { tag: "number", list: [{ key: "a", value: 3 }], text: '{"a":"3"}' },
            { tag: "not escaped", list: [{ key: "a\"", value: "b\\\"" }], text: '{"a"":"b\\""}' }
        ]
    }

    function test_makeJsonAttr(row) {
        compare(Public.makeJsonAttr(row.list), row.text)
    }

    function test_makeLink_data() {
        var style = "<style>{text-decoration: underline;color:"
        var home = Public.homePageUrl
        return [
            { tag: "text only", args: ["Go"],
              link: style + "#037dff} </style><a href=" + home + ">Go</a>" },
            { tag: "null url", args: ["Go", null],
              link: style + "#037dff} </style><a href=" + home + ">Go</a>" },
            { tag: "empty url", args: ["Go", ""],
              link: style + "#037dff} </style><a href=Go>Go</a>" },
            { tag: "url", args: ["Go", "http://a/b?c=d"],
              link: style + "#037dff} </style><a href=http://a/b?c=d>Go</a>" },
            { tag: "url with percent signs", args: ["Go", "http://a/%1%2", "#%2"],
              link: style + "#%2} </style><a href=http://a/%1%2>Go</a>" },
            { tag: "colour", args: ["Go", "u", "red"],
              link: style + "red} </style><a href=u>Go</a>" },
            { tag: "empty colour", args: ["Go", "u", ""],
              link: style + "#037dff} </style><a href=u>Go</a>" },
            { tag: "null colour", args: ["Go", "u", null],
              link: style + "#037dff} </style><a href=u>Go</a>" },
            { tag: "empty text", args: [""],
              link: style + "#037dff} </style><a href=" + home + "></a>" }
        ]
    }

    function test_makeLink(row) {
        compare(Public.makeLink.apply(null, row.args), row.link)
    }

    function test_homePageIsAnAddress() {
        compare(Public.homePageUrl.indexOf("https://"), 0)
        // Unquoted in a link: nothing in it may end the attribute.
        verify(!/[\s>"']|\/$/.test(Public.homePageUrl))
    }

    function test_makeColorFont_data() {
        return [
            { tag: "colour", args: ["t", "#123456"], style: "color:#123456" },
            { tag: "weight", args: ["t", "red", 600], style: "color:red;font-weight:600" },
            { tag: "size", args: ["t", "red", undefined, "12px"],
              style: "color:red;font-size:12px" },
            { tag: "both", args: ["t", "red", "bold", "12px"],
              style: "color:red;font-weight:bold;font-size:12px" },
            { tag: "null and empty", args: ["t", "red", null, ""], style: "color:red" }
        ]
    }

    function test_makeColorFont(row) {
        compare(Public.makeColorFont.apply(null, row.args),
                '<span style="' + row.style + '">t</span>')
    }

    // Functions that only other programs of the family need.
    function test_nothingElse() {
        var foreign = ["log", "logEx", "versionNo", "readIni", "urlGet", "checkSource", "radioSource",
                       "capacity2String", "dateFmt", "textLength", "isFileExist"]
        foreign.forEach(function(name) {
            compare(Public[name], undefined, name)
        })
    }
}
