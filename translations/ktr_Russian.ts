<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru" sourcelanguage="en">
<context>
    <name>DiscountComponent</name>
    <message>
        <source>Validity period: %1</source>
        <translation>Действует до: %1</translation>
    </message>
</context>
<context>
    <name>HomePage</name>
    <message>
        <source>Please tell us why you want to uninstall Dravik:</source>
        <translation>Расскажите, почему вы хотите удалить Dravik:</translation>
    </message>
    <message>
        <source>Give you an exclusive discount:</source>
        <translation>Эксклюзивная скидка для вас:</translation>
    </message>
    <message>
        <source>Glad to solve your problem! We have an extra coupon for you. Hope you like it!</source>
        <translation>Рады, что ваша проблема решена! У нас есть для вас ещё один купон. Надеемся, он вам понравится!</translation>
    </message>
    <message>
        <source>We&apos;d like to know what problem you&apos;ve been experiencing. And we have an extra coupon for you. </source>
        <translation>Нам важно знать, с какой проблемой вы столкнулись. И у нас есть для вас ещё один купон. </translation>
    </message>
    <message>
        <source>Thanks for your feedback! We have an extra coupon for you. Hope you like it!</source>
        <translation>Спасибо за отзыв! У нас есть для вас ещё один купон. Надеемся, он вам понравится!</translation>
    </message>
    <message>
        <source>View exclusive discounted prices</source>
        <translation>Посмотреть эксклюзивные цены</translation>
    </message>
    <message>
        <source>Enjoy discounted prices to buy other products</source>
        <translation>Купить другие продукты со скидкой</translation>
    </message>
    <message>
        <source>Unistalling…</source>
        <translation>Удаление…</translation>
    </message>
    <message>
        <source>Unistall complete!</source>
        <translation>Удаление завершено!</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>ОК</translation>
    </message>
    <message>
        <source>Uninstall</source>
        <translation>Удалить</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Предупреждение</translation>
    </message>
    <message>
        <source>Uninstall has detected that Torvan Dravik is currently running.</source>
        <translation>Программа Torvan Dravik сейчас запущена.</translation>
    </message>
    <message>
        <source>Please close all instances and try again.</source>
        <translation>Закройте все её окна и повторите попытку.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Отмена</translation>
    </message>
</context>
<context>
    <name>ReasonComponent</name>
    <message>
        <source>The price is too expensive</source>
        <translation>Цена слишком высокая</translation>
    </message>
    <message>
        <source>The product has solved my problem</source>
        <translation>Продукт решил мою проблему</translation>
    </message>
    <message>
        <source>The product doesn&apos;t solve my problem</source>
        <translation>Продукт не решает мою проблему</translation>
    </message>
    <message>
        <source>I have other reasons</source>
        <translation>Другие причины</translation>
    </message>
</context>
<context>
    <name>SubmitAdviceComponent</name>
    <message>
        <source>you voice is important to us.</source>
        <translation>Ваше мнение важно для нас.</translation>
    </message>
    <message>
        <source>Submit</source>
        <translation>Отправить</translation>
    </message>
</context>
<context>
    <name>WinTitle</name>
    <message>
        <source>Close</source>
        <translation>Закрыть</translation>
    </message>
</context>
<context>
    <name>ZoPopTitle</name>
    <message>
        <source>Close</source>
        <translation>Закрыть</translation>
    </message>
</context>
</TS>
