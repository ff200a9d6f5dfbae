<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>DiscountComponent</name>
    <message>
        <source>Validity period: %1</source>
        <translation>有效期至：%1</translation>
    </message>
</context>
<context>
    <name>HomePage</name>
    <message>
        <source>Please tell us why you want to uninstall Dravik:</source>
        <translation>请告诉我们您卸载 Dravik 的原因：</translation>
    </message>
    <message>
        <source>Give you an exclusive discount:</source>
        <translation>为您提供专属折扣：</translation>
    </message>
    <message>
        <source>Glad to solve your problem! We have an extra coupon for you. Hope you like it!</source>
        <translation>很高兴解决了您的问题！我们为您准备了一张额外的优惠券，希望您喜欢！</translation>
    </message>
    <message>
        <source>We&apos;d like to know what problem you&apos;ve been experiencing. And we have an extra coupon for you. </source>
        <translation>我们想了解您遇到了什么问题。我们还为您准备了一张额外的优惠券。 </translation>
    </message>
    <message>
        <source>Thanks for your feedback! We have an extra coupon for you. Hope you like it!</source>
        <translation>感谢您的反馈！我们为您准备了一张额外的优惠券，希望您喜欢！</translation>
    </message>
    <message>
        <source>View exclusive discounted prices</source>
        <translation>查看专属折扣价格</translation>
    </message>
    <message>
        <source>Enjoy discounted prices to buy other products</source>
        <translation>以优惠价格购买其他产品</translation>
    </message>
    <message>
        <source>Unistalling…</source>
        <translation>正在卸载…</translation>
    </message>
    <message>
        <source>Unistall complete!</source>
        <translation>卸载完成！</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Uninstall</source>
        <translation>卸载</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>Uninstall has detected that Torvan Dravik is currently running.</source>
        <translation>检测到 Torvan Dravik 正在运行。</translation>
    </message>
    <message>
        <source>Please close all instances and try again.</source>
        <translation>请关闭其所有窗口后重试。</translation>
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
        <translation>价格太贵</translation>
    </message>
    <message>
        <source>The product has solved my problem</source>
        <translation>产品已经解决了我的问题</translation>
    </message>
    <message>
        <source>The product doesn&apos;t solve my problem</source>
        <translation>产品没有解决我的问题</translation>
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
        <translation>您的意见对我们很重要。</translation>
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
        <translation>关闭</translation>
    </message>
</context>
<context>
    <name>ZoPopTitle</name>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
</context>
</TS>
