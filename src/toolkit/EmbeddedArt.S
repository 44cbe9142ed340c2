// The program's pictures, as the resource file that the build makes of them.

    .section .rodata
    .balign 8
    .globl quorrinEmbeddedArt
    .hidden quorrinEmbeddedArt
quorrinEmbeddedArt:
    .incbin ART_FILE

    .section .note.GNU-stack, "", %progbits
