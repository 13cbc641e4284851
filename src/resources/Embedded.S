// The pack of pictures and fonts, byte for byte as the painter wrote it.
        .section .rodata
        .balign 16
        .globl  tessel8_pack
        .hidden tessel8_pack
        .type   tessel8_pack, @object
tessel8_pack:
        .incbin TESSEL8_PACK
        .size   tessel8_pack, . - tessel8_pack
        .section .note.GNU-stack, "", @progbits
