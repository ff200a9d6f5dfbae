import QtQuick 2.14
import QtTest 1.15
import "qrc:/public.js" as Public

// The functions of public.js, and the values in its tables that no reference image shows.
InterfaceTest {
    id: test

    readonly property string home: Public.homePageUrl

    name: "public"

    function link(target, text, colour) {
        return "<style>{text-decoration: underline;color:" + (colour || "#037dff")
                + "} </style><a href=" + target + ">" + text + "</a>"
    }

    function styled(style) {
        return '<span style="color:' + style + '">t</span>'
    }

    // Function, arguments, result.
    function test_functionsReturnTheirTexts_data() {
        return [
            ["makeJsonAttr", [[]], ""], ["makeJsonAttr", [undefined], ""],
            ["makeJsonAttr", [null], ""],
            ["makeJsonAttr", [[{ key: "a", value: "b" }, { key: "c", value: 3 }]],
             '{"a":"b","c":"3"}'],
            ["makeJsonAttr", [[{ key: "a\"", value: "b\\\"" }]], '{"a"":"b\\""}'],
            ["makeLink", ["Go"], link(home, "Go")],
            ["makeLink", ["Go", null], link(home, "Go")],
            ["makeLink", ["Go", ""], link("Go", "Go")],
            ["makeLink", ["Go", "http://a/%1%2?c=d", "#%2"],
             link("http://a/%1%2?c=d", "Go", "#%2")],
            ["makeLink", ["Go", "u", ""], link("u", "Go")],
            ["makeLink", ["Go", "u", null], link("u", "Go")],
            ["makeLink", [""], link(home, "")],
            ["makeColorFont", ["t", "#123456"], styled("#123456")],
            ["makeColorFont", ["t", "red", 600], styled("red;font-weight:600")],
            ["makeColorFont", ["t", "red", undefined, "12px"], styled("red;font-size:12px")],
            ["makeColorFont", ["t", "red", "bold", "12px"],
             styled("red;font-weight:bold;font-size:12px")],
            ["makeColorFont", ["t", "red", null, ""], styled("red")]
        ].map((row, i) => ({ tag: i + " " + row[0], make: Public[row[0]], args: row[1],
                             text: row[2] }))
    }

    function test_functionsReturnTheirTexts(row) {
        compare(row.make.apply(null, row.args), row.text)
    }

    // Function; attribute and source as passed; attribute and source as sent.
    function test_functionsSendTheirEvents_data() {
        var list = [{ key: "k", value: "v" }]
        return [
            ["sendUserInfoEx", []], ["sendUserInfoEx", [null, null]], ["sendUserInfoEx", ["", ""]],
            ["sendUserInfoEx", [{ answer: "a \"b\"", n: [1, 2] }, "menu"],
             '{"answer":"a \\"b\\"","n":[1,2]}', "menu"],
            ["sendUserInfoEx", [{}], "{}"], ["sendUserInfoEx", [["a"]], '["a"]'],
            ["sendUserInfoEx", [0], "0"], ["sendUserInfoEx", [false], "false"],
            ["sendUserInfoEx", [' { "url" : "x", "n": 1.0 } '], '{"url":"x","n":1}'],
            ["sendUserInfoEx", ['{"a":"\\u00e9\u4e2d"}'], '{"a":"\u00e9\u4e2d"}'],
            ["sendUserInfoEx", ["12"], "12"], ["sendUserInfoEx", ["null"], "null"],
            ["sendUserInfoEx", ["just text, \"quoted"], "just text, \"quoted"],
            ["sendUserInfoEx", [" "], " "],
            ["sendUserInfo", []], ["sendUserInfo", [null, null]], ["sendUserInfo", ["", ""]],
            ["sendUserInfo", [[]]], ["sendUserInfo", [list, "menu"], '{"k":"v"}', "menu"]
        ].map((row, i) => ({ tag: i + " " + row[0], send: Public[row[0]], args: row[1],
                             attribute: row[2], source: row[3] }))
    }

    function test_functionsSendTheirEvents(row) {
        row.send.apply(null, ["W", "A"].concat(row.args))
        compare(fake.asked, [event("W", "A", row.attribute, row.source)])
    }

    // Links contain this URL without quotes, so no character may end the attribute.
    function test_homePageIsAUrl() {
        verify(/^https:\/\/[^\s>"']*[^\s>"'\/]$/.test(home), home)
    }

    function test_tablesHaveTheirValuesAndUnusedFunctionsAreMissing() {
        compare([Public.winShadowColor, Public.winShadowBlur], ["#48475963", 8])
        ;["rpInfo", "nrpInfo", "drpInfo", "rplInfo"].forEach((name) => {
            for (var state in Public[name].borderColor) {
                compare(Public[name].borderColor[state], Public.drpInfo.bgColor[state], name)
            }
        })
        verify(Public.rpInfo !== Public.nrpInfo && Public.nrpInfo !== Public.rplInfo, "not shared")
        // Functions that only other programs of the family need.
        ;["log", "logEx", "versionNo", "readIni", "urlGet", "checkSource", "radioSource",
          "capacity2String", "dateFmt", "textLength", "isFileExist"].forEach((name) => {
            compare(Public[name], undefined, name)
        })
    }
}
