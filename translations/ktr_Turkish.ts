<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="tr" sourcelanguage="en">
<context>
    <name>DiscountComponent</name>
    <message>
        <source>Validity period: %1</source>
        <translation>Geçerlilik tarihi: %1</translation>
    </message>
</context>
<context>
    <name>HomePage</name>
    <message>
        <source>Please tell us why you want to uninstall Dravik:</source>
        <translation>Dravik programını neden kaldırmak istediğinizi bize söyleyin:</translation>
    </message>
    <message>
        <source>Give you an exclusive discount:</source>
        <translation>Size özel bir indirim:</translation>
    </message>
    <message>
        <source>Glad to solve your problem! We have an extra coupon for you. Hope you like it!</source>
        <translation>Sorununuzun çözülmesine sevindik! Sizin için ek bir kuponumuz var. Umarız beğenirsiniz!</translation>
    </message>
    <message>
        <source>We&apos;d like to know what problem you&apos;ve been experiencing. And we have an extra coupon for you. </source>
        <translation>Hangi sorunla karşılaştığınızı bilmek isteriz. Ayrıca sizin için ek bir kuponumuz var. </translation>
    </message>
    <message>
        <source>Thanks for your feedback! We have an extra coupon for you. Hope you like it!</source>
        <translation>Geri bildiriminiz için teşekkürler! Sizin için ek bir kuponumuz var. Umarız beğenirsiniz!</translation>
    </message>
    <message>
        <source>View exclusive discounted prices</source>
        <translation>Özel indirimli fiyatları gör</translation>
    </message>
    <message>
        <source>Enjoy discounted prices to buy other products</source>
        <translation>Diğer ürünleri indirimli satın al</translation>
    </message>
    <message>
        <source>Unistalling…</source>
        <translation>Kaldırılıyor…</translation>
    </message>
    <message>
        <source>Unistall complete!</source>
        <translation>Kaldırma tamamlandı!</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Tamam</translation>
    </message>
    <message>
        <source>Uninstall</source>
        <translation>Kaldır</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Uyarı</translation>
    </message>
    <message>
        <source>Uninstall has detected that Torvan Dravik is currently running.</source>
        <translation>Torvan Dravik şu anda çalışıyor.</translation>
    </message>
    <message>
        <source>Please close all instances and try again.</source>
        <translation>Lütfen tüm pencerelerini kapatıp yeniden deneyin.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>İptal</translation>
    </message>
</context>
<context>
    <name>ReasonComponent</name>
    <message>
        <source>The price is too expensive</source>
        <translation>Fiyatı çok yüksek</translation>
    </message>
    <message>
        <source>The product has solved my problem</source>
        <translation>Ürün sorunumu çözdü</translation>
    </message>
    <message>
        <source>The product doesn&apos;t solve my problem</source>
        <translation>Ürün sorunumu çözmüyor</translation>
    </message>
    <message>
        <source>I have other reasons</source>
        <translation>Başka nedenlerim var</translation>
    </message>
</context>
<context>
    <name>SubmitAdviceComponent</name>
    <message>
        <source>you voice is important to us.</source>
        <translation>Görüşünüz bizim için önemli.</translation>
    </message>
    <message>
        <source>Submit</source>
        <translation>Gönder</translation>
    </message>
</context>
<context>
    <name>WinTitle</name>
    <message>
        <source>Close</source>
        <translation>Kapat</translation>
    </message>
</context>
<context>
    <name>ZoPopTitle</name>
    <message>
        <source>Close</source>
        <translation>Kapat</translation>
    </message>
</context>
</TS>
