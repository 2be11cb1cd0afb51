// The rendered icons, as they are, between the program's constants.

#ifdef __ELF__
    .section .rodata.obkCellIcons, "a", %progbits
#else
    .section .rdata$obkCellIcons, "dr"
#endif

    .globl obkCellIcons
    .balign 4
obkCellIcons:
    .incbin OBK_CELL_ICONS

#ifdef __ELF__
    .section .note.GNU-stack, "", %progbits
#endif
