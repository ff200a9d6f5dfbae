<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko" sourcelanguage="en">
<context>
    <name>DiscountComponent</name>
    <message>
        <source>Validity period: %1</source>
        <translation>유효 기간: %1</translation>
    </message>
</context>
<context>
    <name>HomePage</name>
    <message>
        <source>Please tell us why you want to uninstall Dravik:</source>
        <translation>Dravik을 제거하려는 이유를 알려 주세요:</translation>
    </message>
    <message>
        <source>Give you an exclusive discount:</source>
        <translation>고객님만을 위한 특별 할인:</translation>
    </message>
    <message>
        <source>Glad to solve your problem! We have an extra coupon for you. Hope you like it!</source>
        <translation>문제가 해결되어 기쁩니다! 추가 쿠폰을 준비했습니다. 마음에 드시길 바랍니다!</translation>
    </message>
    <message>
        <source>We&apos;d like to know what problem you&apos;ve been experiencing. And we have an extra coupon for you. </source>
        <translation>어떤 문제가 있었는지 알려 주세요. 추가 쿠폰도 준비했습니다. </translation>
    </message>
    <message>
        <source>Thanks for your feedback! We have an extra coupon for you. Hope you like it!</source>
        <translation>의견을 보내 주셔서 감사합니다! 추가 쿠폰을 준비했습니다. 마음에 드시길 바랍니다!</translation>
    </message>
    <message>
        <source>View exclusive discounted prices</source>
        <translation>특별 할인 가격 보기</translation>
    </message>
    <message>
        <source>Enjoy discounted prices to buy other products</source>
        <translation>다른 제품을 할인 가격으로 구매하기</translation>
    </message>
    <message>
        <source>Unistalling…</source>
        <translation>제거하는 중…</translation>
    </message>
    <message>
        <source>Unistall complete!</source>
        <translation>제거가 완료되었습니다!</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>확인</translation>
    </message>
    <message>
        <source>Uninstall</source>
        <translation>제거</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>경고</translation>
    </message>
    <message>
        <source>Uninstall has detected that Torvan Dravik is currently running.</source>
        <translation>Torvan Dravik이 현재 실행 중입니다.</translation>
    </message>
    <message>
        <source>Please close all instances and try again.</source>
        <translation>모든 창을 닫고 다시 시도해 주세요.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>취소</translation>
    </message>
</context>
<context>
    <name>ReasonComponent</name>
    <message>
        <source>The price is too expensive</source>
        <translation>가격이 너무 비쌉니다</translation>
    </message>
    <message>
        <source>The product has solved my problem</source>
        <translation>제품이 문제를 해결했습니다</translation>
    </message>
    <message>
        <source>The product doesn&apos;t solve my problem</source>
        <translation>제품이 문제를 해결하지 못합니다</translation>
    </message>
    <message>
        <source>I have other reasons</source>
        <translation>다른 이유가 있습니다</translation>
    </message>
</context>
<context>
    <name>SubmitAdviceComponent</name>
    <message>
        <source>you voice is important to us.</source>
        <translation>고객님의 의견은 소중합니다.</translation>
    </message>
    <message>
        <source>Submit</source>
        <translation>제출</translation>
    </message>
</context>
<context>
    <name>WinTitle</name>
    <message>
        <source>Close</source>
        <translation>닫기</translation>
    </message>
</context>
<context>
    <name>ZoPopTitle</name>
    <message>
        <source>Close</source>
        <translation>닫기</translation>
    </message>
</context>
</TS>
