<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>DiscountComponent</name>
    <message>
        <source>Validity period: %1</source>
        <translation>Validity period: %1</translation>
    </message>
</context>
<context>
    <name>HomePage</name>
    <message>
        <source>Please tell us why you want to uninstall Dravik:</source>
        <translation>Please tell us why you want to uninstall Dravik:</translation>
    </message>
    <message>
        <source>Give you an exclusive discount:</source>
        <translation>Give you an exclusive discount:</translation>
    </message>
    <message>
        <source>Glad to solve your problem! We have an extra coupon for you. Hope you like it!</source>
        <translation>Glad to solve your problem! We have an extra coupon for you. Hope you like it!</translation>
    </message>
    <message>
        <source>We&apos;d like to know what problem you&apos;ve been experiencing. And we have an extra coupon for you. </source>
        <translation>We'd like to know what problem you've been experiencing. And we have an extra coupon for you. </translation>
    </message>
    <message>
        <source>Thanks for your feedback! We have an extra coupon for you. Hope you like it!</source>
        <translation>Thanks for your feedback! We have an extra coupon for you. Hope you like it!</translation>
    </message>
    <message>
        <source>View exclusive discounted prices</source>
        <translation>View exclusive discounted prices</translation>
    </message>
    <message>
        <source>Enjoy discounted prices to buy other products</source>
        <translation>Enjoy discounted prices to buy other products</translation>
    </message>
    <message>
        <source>Unistalling…</source>
        <translation>Unistalling…</translation>
    </message>
    <message>
        <source>Unistall complete!</source>
        <translation>Unistall complete!</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Uninstall</source>
        <translation>Uninstall</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warning</translation>
    </message>
    <message>
        <source>Uninstall has detected that Torvan Dravik is currently running.</source>
        <translation>Uninstall has detected that Torvan Dravik is currently running.</translation>
    </message>
    <message>
        <source>Please close all instances and try again.</source>
        <translation>Please close all instances and try again.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
</context>
<context>
    <name>ReasonComponent</name>
    <message>
        <source>The price is too expensive</source>
        <translation>The price is too expensive</translation>
    </message>
    <message>
        <source>The product has solved my problem</source>
        <translation>The product has solved my problem</translation>
    </message>
    <message>
        <source>The product doesn&apos;t solve my problem</source>
        <translation>The product doesn't solve my problem</translation>
    </message>
    <message>
        <source>I have other reasons</source>
        <translation>I have other reasons</translation>
    </message>
</context>
<context>
    <name>SubmitAdviceComponent</name>
    <message>
        <source>you voice is important to us.</source>
        <translation>you voice is important to us.</translation>
    </message>
    <message>
        <source>Submit</source>
        <translation>Submit</translation>
    </message>
</context>
<context>
    <name>WinTitle</name>
    <message>
        <source>Close</source>
        <translation>Close</translation>
    </message>
</context>
<context>
    <name>ZoPopTitle</name>
    <message>
        <source>Close</source>
        <translation>Close</translation>
    </message>
</context>
</TS>
