<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>DiscountComponent</name>
    <message>
        <source>Validity period: %1</source>
        <translation>有効期限：%1</translation>
    </message>
</context>
<context>
    <name>HomePage</name>
    <message>
        <source>Please tell us why you want to uninstall Dravik:</source>
        <translation>Dravik をアンインストールする理由をお聞かせください：</translation>
    </message>
    <message>
        <source>Give you an exclusive discount:</source>
        <translation>お客様だけの特別割引：</translation>
    </message>
    <message>
        <source>Glad to solve your problem! We have an extra coupon for you. Hope you like it!</source>
        <translation>問題が解決して何よりです！追加のクーポンをご用意しました。ぜひご利用ください！</translation>
    </message>
    <message>
        <source>We&apos;d like to know what problem you&apos;ve been experiencing. And we have an extra coupon for you. </source>
        <translation>どのような問題があったかお聞かせください。追加のクーポンもご用意しています。 </translation>
    </message>
    <message>
        <source>Thanks for your feedback! We have an extra coupon for you. Hope you like it!</source>
        <translation>ご意見ありがとうございます！追加のクーポンをご用意しました。ぜひご利用ください！</translation>
    </message>
    <message>
        <source>View exclusive discounted prices</source>
        <translation>特別割引価格を見る</translation>
    </message>
    <message>
        <source>Enjoy discounted prices to buy other products</source>
        <translation>ほかの製品を割引価格で購入する</translation>
    </message>
    <message>
        <source>Unistalling…</source>
        <translation>アンインストールしています…</translation>
    </message>
    <message>
        <source>Unistall complete!</source>
        <translation>アンインストールが完了しました！</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Uninstall</source>
        <translation>アンインストール</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>Uninstall has detected that Torvan Dravik is currently running.</source>
        <translation>Torvan Dravik が実行中です。</translation>
    </message>
    <message>
        <source>Please close all instances and try again.</source>
        <translation>すべてのウィンドウを閉じてから、もう一度お試しください。</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
</context>
<context>
    <name>ReasonComponent</name>
    <message>
        <source>The price is too expensive</source>
        <translation>価格が高すぎる</translation>
    </message>
    <message>
        <source>The product has solved my problem</source>
        <translation>製品で問題が解決した</translation>
    </message>
    <message>
        <source>The product doesn&apos;t solve my problem</source>
        <translation>製品では問題が解決しない</translation>
    </message>
    <message>
        <source>I have other reasons</source>
        <translation>その他の理由</translation>
    </message>
</context>
<context>
    <name>SubmitAdviceComponent</name>
    <message>
        <source>you voice is important to us.</source>
        <translation>皆様のご意見をお聞かせください。</translation>
    </message>
    <message>
        <source>Submit</source>
        <translation>送信</translation>
    </message>
</context>
<context>
    <name>WinTitle</name>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
</context>
<context>
    <name>ZoPopTitle</name>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
</context>
</TS>
