<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_TW" sourcelanguage="en">
<context>
    <name>DiscountComponent</name>
    <message>
        <source>Validity period: %1</source>
        <translation>有效期限：%1</translation>
    </message>
</context>
<context>
    <name>HomePage</name>
    <message>
        <source>Please tell us why you want to uninstall Dravik:</source>
        <translation>請告訴我們您解除安裝 Dravik 的原因：</translation>
    </message>
    <message>
        <source>Give you an exclusive discount:</source>
        <translation>為您提供專屬折扣：</translation>
    </message>
    <message>
        <source>Glad to solve your problem! We have an extra coupon for you. Hope you like it!</source>
        <translation>很高興解決了您的問題！我們為您準備了一張額外的優惠券，希望您喜歡！</translation>
    </message>
    <message>
        <source>We&apos;d like to know what problem you&apos;ve been experiencing. And we have an extra coupon for you. </source>
        <translation>我們想了解您遇到了什麼問題。我們還為您準備了一張額外的優惠券。 </translation>
    </message>
    <message>
        <source>Thanks for your feedback! We have an extra coupon for you. Hope you like it!</source>
        <translation>感謝您的意見回饋！我們為您準備了一張額外的優惠券，希望您喜歡！</translation>
    </message>
    <message>
        <source>View exclusive discounted prices</source>
        <translation>查看專屬折扣價格</translation>
    </message>
    <message>
        <source>Enjoy discounted prices to buy other products</source>
        <translation>以優惠價格購買其他產品</translation>
    </message>
    <message>
        <source>Unistalling…</source>
        <translation>正在解除安裝…</translation>
    </message>
    <message>
        <source>Unistall complete!</source>
        <translation>解除安裝完成！</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>確定</translation>
    </message>
    <message>
        <source>Uninstall</source>
        <translation>解除安裝</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>Uninstall has detected that Torvan Dravik is currently running.</source>
        <translation>偵測到 Torvan Dravik 正在執行。</translation>
    </message>
    <message>
        <source>Please close all instances and try again.</source>
        <translation>請關閉其所有視窗後再試一次。</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>ReasonComponent</name>
    <message>
        <source>The price is too expensive</source>
        <translation>價格太貴</translation>
    </message>
    <message>
        <source>The product has solved my problem</source>
        <translation>產品已經解決了我的問題</translation>
    </message>
    <message>
        <source>The product doesn&apos;t solve my problem</source>
        <translation>產品沒有解決我的問題</translation>
    </message>
    <message>
        <source>I have other reasons</source>
        <translation>其他原因</translation>
    </message>
</context>
<context>
    <name>SubmitAdviceComponent</name>
    <message>
        <source>you voice is important to us.</source>
        <translation>您的意見對我們很重要。</translation>
    </message>
    <message>
        <source>Submit</source>
        <translation>提交</translation>
    </message>
</context>
<context>
    <name>WinTitle</name>
    <message>
        <source>Close</source>
        <translation>關閉</translation>
    </message>
</context>
<context>
    <name>ZoPopTitle</name>
    <message>
        <source>Close</source>
        <translation>關閉</translation>
    </message>
</context>
</TS>
