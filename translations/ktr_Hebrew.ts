<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="he" sourcelanguage="en">
<context>
    <name>DiscountComponent</name>
    <message>
        <source>Validity period: %1</source>
        <translation>בתוקף עד: %1</translation>
    </message>
</context>
<context>
    <name>HomePage</name>
    <message>
        <source>Please tell us why you want to uninstall Dravik:</source>
        <translation>ספר לנו מדוע ברצונך להסיר את Dravik:</translation>
    </message>
    <message>
        <source>Give you an exclusive discount:</source>
        <translation>הנחה בלעדית עבורך:</translation>
    </message>
    <message>
        <source>Glad to solve your problem! We have an extra coupon for you. Hope you like it!</source>
        <translation>שמחים שהבעיה שלך נפתרה! יש לנו קופון נוסף עבורך. מקווים שתאהב אותו!</translation>
    </message>
    <message>
        <source>We&apos;d like to know what problem you&apos;ve been experiencing. And we have an extra coupon for you. </source>
        <translation>נשמח לדעת באיזו בעיה נתקלת. ויש לנו קופון נוסף עבורך. </translation>
    </message>
    <message>
        <source>Thanks for your feedback! We have an extra coupon for you. Hope you like it!</source>
        <translation>תודה על המשוב! יש לנו קופון נוסף עבורך. מקווים שתאהב אותו!</translation>
    </message>
    <message>
        <source>View exclusive discounted prices</source>
        <translation>הצג מחירים מוזלים בלעדיים</translation>
    </message>
    <message>
        <source>Enjoy discounted prices to buy other products</source>
        <translation>קנה מוצרים אחרים במחיר מוזל</translation>
    </message>
    <message>
        <source>Unistalling…</source>
        <translation>מסיר…</translation>
    </message>
    <message>
        <source>Unistall complete!</source>
        <translation>ההסרה הושלמה!</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>אישור</translation>
    </message>
    <message>
        <source>Uninstall</source>
        <translation>הסר</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>אזהרה</translation>
    </message>
    <message>
        <source>Uninstall has detected that Torvan Dravik is currently running.</source>
        <translation>התוכנה Torvan Dravik פועלת כעת.</translation>
    </message>
    <message>
        <source>Please close all instances and try again.</source>
        <translation>סגור את כל החלונות שלה ונסה שוב.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>ביטול</translation>
    </message>
</context>
<context>
    <name>ReasonComponent</name>
    <message>
        <source>The price is too expensive</source>
        <translation>המחיר גבוה מדי</translation>
    </message>
    <message>
        <source>The product has solved my problem</source>
        <translation>המוצר פתר את הבעיה שלי</translation>
    </message>
    <message>
        <source>The product doesn&apos;t solve my problem</source>
        <translation>המוצר אינו פותר את הבעיה שלי</translation>
    </message>
    <message>
        <source>I have other reasons</source>
        <translation>יש לי סיבות אחרות</translation>
    </message>
</context>
<context>
    <name>SubmitAdviceComponent</name>
    <message>
        <source>you voice is important to us.</source>
        <translation>דעתך חשובה לנו.</translation>
    </message>
    <message>
        <source>Submit</source>
        <translation>שלח</translation>
    </message>
</context>
<context>
    <name>WinTitle</name>
    <message>
        <source>Close</source>
        <translation>סגור</translation>
    </message>
</context>
<context>
    <name>ZoPopTitle</name>
    <message>
        <source>Close</source>
        <translation>סגור</translation>
    </message>
</context>
</TS>
