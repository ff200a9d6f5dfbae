<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="th" sourcelanguage="en">
<context>
    <name>DiscountComponent</name>
    <message>
        <source>Validity period: %1</source>
        <translation>ใช้ได้ถึง: %1</translation>
    </message>
</context>
<context>
    <name>HomePage</name>
    <message>
        <source>Please tell us why you want to uninstall Dravik:</source>
        <translation>โปรดบอกเราว่าเหตุใดคุณจึงต้องการถอนการติดตั้ง Dravik:</translation>
    </message>
    <message>
        <source>Give you an exclusive discount:</source>
        <translation>ส่วนลดพิเศษสำหรับคุณ:</translation>
    </message>
    <message>
        <source>Glad to solve your problem! We have an extra coupon for you. Hope you like it!</source>
        <translation>ยินดีที่ปัญหาของคุณได้รับการแก้ไข! เรามีคูปองพิเศษเพิ่มเติมให้คุณ หวังว่าคุณจะชอบ!</translation>
    </message>
    <message>
        <source>We&apos;d like to know what problem you&apos;ve been experiencing. And we have an extra coupon for you. </source>
        <translation>เราอยากทราบว่าคุณพบปัญหาอะไร และเรามีคูปองพิเศษเพิ่มเติมให้คุณ </translation>
    </message>
    <message>
        <source>Thanks for your feedback! We have an extra coupon for you. Hope you like it!</source>
        <translation>ขอบคุณสำหรับความคิดเห็น! เรามีคูปองพิเศษเพิ่มเติมให้คุณ หวังว่าคุณจะชอบ!</translation>
    </message>
    <message>
        <source>View exclusive discounted prices</source>
        <translation>ดูราคาส่วนลดพิเศษ</translation>
    </message>
    <message>
        <source>Enjoy discounted prices to buy other products</source>
        <translation>ซื้อผลิตภัณฑ์อื่นในราคาส่วนลด</translation>
    </message>
    <message>
        <source>Unistalling…</source>
        <translation>กำลังถอนการติดตั้ง…</translation>
    </message>
    <message>
        <source>Unistall complete!</source>
        <translation>ถอนการติดตั้งเสร็จสมบูรณ์!</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>ตกลง</translation>
    </message>
    <message>
        <source>Uninstall</source>
        <translation>ถอนการติดตั้ง</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>คำเตือน</translation>
    </message>
    <message>
        <source>Uninstall has detected that Torvan Dravik is currently running.</source>
        <translation>Torvan Dravik กำลังทำงานอยู่</translation>
    </message>
    <message>
        <source>Please close all instances and try again.</source>
        <translation>โปรดปิดหน้าต่างทั้งหมดแล้วลองอีกครั้ง</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>ยกเลิก</translation>
    </message>
</context>
<context>
    <name>ReasonComponent</name>
    <message>
        <source>The price is too expensive</source>
        <translation>ราคาแพงเกินไป</translation>
    </message>
    <message>
        <source>The product has solved my problem</source>
        <translation>ผลิตภัณฑ์แก้ปัญหาของฉันได้แล้ว</translation>
    </message>
    <message>
        <source>The product doesn&apos;t solve my problem</source>
        <translation>ผลิตภัณฑ์แก้ปัญหาของฉันไม่ได้</translation>
    </message>
    <message>
        <source>I have other reasons</source>
        <translation>มีเหตุผลอื่น</translation>
    </message>
</context>
<context>
    <name>SubmitAdviceComponent</name>
    <message>
        <source>you voice is important to us.</source>
        <translation>ความคิดเห็นของคุณสำคัญต่อเรา</translation>
    </message>
    <message>
        <source>Submit</source>
        <translation>ส่ง</translation>
    </message>
</context>
<context>
    <name>WinTitle</name>
    <message>
        <source>Close</source>
        <translation>ปิด</translation>
    </message>
</context>
<context>
    <name>ZoPopTitle</name>
    <message>
        <source>Close</source>
        <translation>ปิด</translation>
    </message>
</context>
</TS>
