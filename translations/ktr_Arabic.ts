<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ar" sourcelanguage="en">
<context>
    <name>DiscountComponent</name>
    <message>
        <source>Validity period: %1</source>
        <translation>صالح حتى: %1</translation>
    </message>
</context>
<context>
    <name>HomePage</name>
    <message>
        <source>Please tell us why you want to uninstall Dravik:</source>
        <translation>يرجى إخبارنا عن سبب رغبتك في إلغاء تثبيت Dravik:</translation>
    </message>
    <message>
        <source>Give you an exclusive discount:</source>
        <translation>خصم حصري لك:</translation>
    </message>
    <message>
        <source>Glad to solve your problem! We have an extra coupon for you. Hope you like it!</source>
        <translation>يسعدنا أن مشكلتك قد حُلّت! لدينا قسيمة إضافية لك. نأمل أن تعجبك!</translation>
    </message>
    <message>
        <source>We&apos;d like to know what problem you&apos;ve been experiencing. And we have an extra coupon for you. </source>
        <translation>نود معرفة المشكلة التي واجهتك. ولدينا قسيمة إضافية لك. </translation>
    </message>
    <message>
        <source>Thanks for your feedback! We have an extra coupon for you. Hope you like it!</source>
        <translation>شكرًا على ملاحظاتك! لدينا قسيمة إضافية لك. نأمل أن تعجبك!</translation>
    </message>
    <message>
        <source>View exclusive discounted prices</source>
        <translation>عرض الأسعار المخفضة الحصرية</translation>
    </message>
    <message>
        <source>Enjoy discounted prices to buy other products</source>
        <translation>شراء منتجات أخرى بأسعار مخفضة</translation>
    </message>
    <message>
        <source>Unistalling…</source>
        <translation>جارٍ إلغاء التثبيت…</translation>
    </message>
    <message>
        <source>Unistall complete!</source>
        <translation>اكتمل إلغاء التثبيت!</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>موافق</translation>
    </message>
    <message>
        <source>Uninstall</source>
        <translation>إلغاء التثبيت</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>تحذير</translation>
    </message>
    <message>
        <source>Uninstall has detected that Torvan Dravik is currently running.</source>
        <translation>برنامج Torvan Dravik قيد التشغيل حاليًا.</translation>
    </message>
    <message>
        <source>Please close all instances and try again.</source>
        <translation>يرجى إغلاق جميع نوافذه ثم المحاولة مرة أخرى.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>إلغاء</translation>
    </message>
</context>
<context>
    <name>ReasonComponent</name>
    <message>
        <source>The price is too expensive</source>
        <translation>السعر مرتفع جدًا</translation>
    </message>
    <message>
        <source>The product has solved my problem</source>
        <translation>لقد حلّ المنتج مشكلتي</translation>
    </message>
    <message>
        <source>The product doesn&apos;t solve my problem</source>
        <translation>المنتج لا يحلّ مشكلتي</translation>
    </message>
    <message>
        <source>I have other reasons</source>
        <translation>لدي أسباب أخرى</translation>
    </message>
</context>
<context>
    <name>SubmitAdviceComponent</name>
    <message>
        <source>you voice is important to us.</source>
        <translation>رأيك يهمنا.</translation>
    </message>
    <message>
        <source>Submit</source>
        <translation>إرسال</translation>
    </message>
</context>
<context>
    <name>WinTitle</name>
    <message>
        <source>Close</source>
        <translation>إغلاق</translation>
    </message>
</context>
<context>
    <name>ZoPopTitle</name>
    <message>
        <source>Close</source>
        <translation>إغلاق</translation>
    </message>
</context>
</TS>
