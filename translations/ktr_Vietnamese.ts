<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="vi" sourcelanguage="en">
<context>
    <name>DiscountComponent</name>
    <message>
        <source>Validity period: %1</source>
        <translation>Có hiệu lực đến: %1</translation>
    </message>
</context>
<context>
    <name>HomePage</name>
    <message>
        <source>Please tell us why you want to uninstall Dravik:</source>
        <translation>Vui lòng cho biết lý do bạn muốn gỡ cài đặt Dravik:</translation>
    </message>
    <message>
        <source>Give you an exclusive discount:</source>
        <translation>Ưu đãi dành riêng cho bạn:</translation>
    </message>
    <message>
        <source>Glad to solve your problem! We have an extra coupon for you. Hope you like it!</source>
        <translation>Rất vui vì vấn đề của bạn đã được giải quyết! Chúng tôi có thêm một phiếu giảm giá cho bạn. Mong bạn sẽ thích!</translation>
    </message>
    <message>
        <source>We&apos;d like to know what problem you&apos;ve been experiencing. And we have an extra coupon for you. </source>
        <translation>Chúng tôi muốn biết bạn đã gặp vấn đề gì. Và chúng tôi có thêm một phiếu giảm giá cho bạn. </translation>
    </message>
    <message>
        <source>Thanks for your feedback! We have an extra coupon for you. Hope you like it!</source>
        <translation>Cảm ơn phản hồi của bạn! Chúng tôi có thêm một phiếu giảm giá cho bạn. Mong bạn sẽ thích!</translation>
    </message>
    <message>
        <source>View exclusive discounted prices</source>
        <translation>Xem giá ưu đãi độc quyền</translation>
    </message>
    <message>
        <source>Enjoy discounted prices to buy other products</source>
        <translation>Mua các sản phẩm khác với giá ưu đãi</translation>
    </message>
    <message>
        <source>Unistalling…</source>
        <translation>Đang gỡ cài đặt…</translation>
    </message>
    <message>
        <source>Unistall complete!</source>
        <translation>Gỡ cài đặt hoàn tất!</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Uninstall</source>
        <translation>Gỡ cài đặt</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Cảnh báo</translation>
    </message>
    <message>
        <source>Uninstall has detected that Torvan Dravik is currently running.</source>
        <translation>Torvan Dravik hiện đang chạy.</translation>
    </message>
    <message>
        <source>Please close all instances and try again.</source>
        <translation>Vui lòng đóng mọi cửa sổ của chương trình rồi thử lại.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Hủy</translation>
    </message>
</context>
<context>
    <name>ReasonComponent</name>
    <message>
        <source>The price is too expensive</source>
        <translation>Giá quá đắt</translation>
    </message>
    <message>
        <source>The product has solved my problem</source>
        <translation>Sản phẩm đã giải quyết vấn đề của tôi</translation>
    </message>
    <message>
        <source>The product doesn&apos;t solve my problem</source>
        <translation>Sản phẩm không giải quyết được vấn đề</translation>
    </message>
    <message>
        <source>I have other reasons</source>
        <translation>Tôi có lý do khác</translation>
    </message>
</context>
<context>
    <name>SubmitAdviceComponent</name>
    <message>
        <source>you voice is important to us.</source>
        <translation>Ý kiến của bạn rất quan trọng với chúng tôi.</translation>
    </message>
    <message>
        <source>Submit</source>
        <translation>Gửi</translation>
    </message>
</context>
<context>
    <name>WinTitle</name>
    <message>
        <source>Close</source>
        <translation>Đóng</translation>
    </message>
</context>
<context>
    <name>ZoPopTitle</name>
    <message>
        <source>Close</source>
        <translation>Đóng</translation>
    </message>
</context>
</TS>
