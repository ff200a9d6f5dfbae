<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="uk" sourcelanguage="en">
<context>
    <name>DiscountComponent</name>
    <message>
        <source>Validity period: %1</source>
        <translation>Дійсний до: %1</translation>
    </message>
</context>
<context>
    <name>HomePage</name>
    <message>
        <source>Please tell us why you want to uninstall Dravik:</source>
        <translation>Розкажіть, чому ви хочете видалити Dravik:</translation>
    </message>
    <message>
        <source>Give you an exclusive discount:</source>
        <translation>Ексклюзивна знижка для вас:</translation>
    </message>
    <message>
        <source>Glad to solve your problem! We have an extra coupon for you. Hope you like it!</source>
        <translation>Раді, що вашу проблему вирішено! Маємо для вас ще один купон. Сподіваємося, він вам сподобається!</translation>
    </message>
    <message>
        <source>We&apos;d like to know what problem you&apos;ve been experiencing. And we have an extra coupon for you. </source>
        <translation>Ми хотіли б знати, з якою проблемою ви зіткнулися. І маємо для вас ще один купон. </translation>
    </message>
    <message>
        <source>Thanks for your feedback! We have an extra coupon for you. Hope you like it!</source>
        <translation>Дякуємо за відгук! Маємо для вас ще один купон. Сподіваємося, він вам сподобається!</translation>
    </message>
    <message>
        <source>View exclusive discounted prices</source>
        <translation>Переглянути ексклюзивні ціни</translation>
    </message>
    <message>
        <source>Enjoy discounted prices to buy other products</source>
        <translation>Купити інші продукти зі знижкою</translation>
    </message>
    <message>
        <source>Unistalling…</source>
        <translation>Видалення…</translation>
    </message>
    <message>
        <source>Unistall complete!</source>
        <translation>Видалення завершено!</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Uninstall</source>
        <translation>Видалити</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Попередження</translation>
    </message>
    <message>
        <source>Uninstall has detected that Torvan Dravik is currently running.</source>
        <translation>Програма Torvan Dravik зараз запущена.</translation>
    </message>
    <message>
        <source>Please close all instances and try again.</source>
        <translation>Закрийте всі її вікна та повторіть спробу.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Скасувати</translation>
    </message>
</context>
<context>
    <name>ReasonComponent</name>
    <message>
        <source>The price is too expensive</source>
        <translation>Ціна надто висока</translation>
    </message>
    <message>
        <source>The product has solved my problem</source>
        <translation>Продукт вирішив мою проблему</translation>
    </message>
    <message>
        <source>The product doesn&apos;t solve my problem</source>
        <translation>Продукт не вирішує мою проблему</translation>
    </message>
    <message>
        <source>I have other reasons</source>
        <translation>Інші причини</translation>
    </message>
</context>
<context>
    <name>SubmitAdviceComponent</name>
    <message>
        <source>you voice is important to us.</source>
        <translation>Ваша думка важлива для нас.</translation>
    </message>
    <message>
        <source>Submit</source>
        <translation>Надіслати</translation>
    </message>
</context>
<context>
    <name>WinTitle</name>
    <message>
        <source>Close</source>
        <translation>Закрити</translation>
    </message>
</context>
<context>
    <name>ZoPopTitle</name>
    <message>
        <source>Close</source>
        <translation>Закрити</translation>
    </message>
</context>
</TS>
