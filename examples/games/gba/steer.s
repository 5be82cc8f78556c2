@ A white square on a blue ground that the pad steers, a tone while A is held, and a battery save
@ that counts: what a frontend has to carry from end to end, in one screen.
@
@ Battery RAM: 0 "VELM" once set up, 4 starts, 5 presses of A, bytes both.

    .arch armv4t
    .arm
    .text

    .equ IO,          0x04000000
    .equ DISPCNT,     0x000
    .equ VCOUNT,      0x006
    .equ SOUND1CNT_H, 0x062
    .equ SOUND1CNT_X, 0x064
    .equ SOUNDCNT_L,  0x080
    .equ SOUNDCNT_H,  0x082
    .equ SOUNDCNT_X,  0x084
    .equ KEYINPUT,    0x130

    .equ PALETTE,     0x05000000
    .equ TILES,       0x06010000
    .equ SPRITES,     0x07000000
    .equ SAVED,       0x0E000000

    .equ KEY_A, 1 << 0
    .equ KEY_RIGHT, 1 << 4
    .equ KEY_LEFT, 1 << 5
    .equ KEY_UP, 1 << 6
    .equ KEY_DOWN, 1 << 7

    .equ BLUE, 0x5000
    .equ WHITE, 0x7FFF

header:
    b start
    .space 0xA0 - 4
    .ascii "STEER"
    .space 0xAC - 0xA5
    .ascii "AVEL00"
    .byte 0x96                  @ what tells a cartridge from other files
    .space 0xC0 - 0xB3
    .ascii "SRAM_V113"          @ the kind of battery memory, as emulators look for it
    .balign 4

@ r4 IO, r5 x, r6 y, r7 keys held in the frame before, r8 SAVED
start:
    mov r4, #IO
    mov r8, #SAVED
    mov r5, #64
    mov r6, #64
    mov r7, #0
    bl count_start
    bl draw_tiles
    bl set_up_sound
    mov r0, #0x1000             @ sprites only, no background layer
    add r0, r0, #0x40           @ tiles of a sprite lie one after another
    strh r0, [r4, #DISPCNT]

frame:
    ldrh r0, [r4, #VCOUNT]      @ out of the last blank, into the next
    cmp r0, #160
    bhs frame
1:  ldrh r0, [r4, #VCOUNT]
    cmp r0, #160
    blo 1b

    add r0, r4, #KEYINPUT
    ldrh r0, [r0]
    mvn r0, r0                  @ the hardware tells what is up
    bic r1, r0, r7
    mov r7, r0
    tst r1, #KEY_A
    beq 2f
    ldrb r2, [r8, #5]
    add r2, r2, #1
    strb r2, [r8, #5]
2:  bl sound
    tst r7, #KEY_RIGHT
    addne r5, r5, #1
    tst r7, #KEY_LEFT
    subne r5, r5, #1
    tst r7, #KEY_DOWN
    addne r6, r6, #1
    tst r7, #KEY_UP
    subne r6, r6, #1

    mov r0, #SPRITES
    and r1, r6, #0xFF
    strh r1, [r0]               @ square, 16 colours
    and r1, r5, #0xFF
    orr r1, r1, #0x4000         @ 16 by 16
    strh r1, [r0, #2]
    mov r1, #0
    strh r1, [r0, #4]
    b frame

count_start:
    adr r0, signature
    mov r1, #0
1:  ldrb r2, [r0, r1]
    ldrb r3, [r8, r1]
    cmp r2, r3
    bne fresh
    add r1, r1, #1
    cmp r1, #4
    bne 1b
count:
    ldrb r2, [r8, #4]
    add r2, r2, #1
    strb r2, [r8, #4]
    bx lr
fresh:
    mov r1, #0
    mov r3, #0
1:  ldrb r2, [r0, r1]
    strb r2, [r8, r1]
    add r1, r1, #1
    cmp r1, #4
    bne 1b
    strb r3, [r8, #4]
    strb r3, [r8, #5]
    b count

draw_tiles:
    mov r0, #PALETTE
    mov r1, #BLUE
    strh r1, [r0]
    add r0, r0, #0x200          @ the sprites' colours
    ldr r1, =WHITE
    strh r1, [r0, #2]
    ldr r0, =TILES
    ldr r1, =0x11111111
    mov r2, #32                 @ four tiles, eight rows each, all of colour 1
1:  str r1, [r0], #4
    subs r2, r2, #1
    bne 1b
    mov r0, #SPRITES            @ the other 127 stay hidden
    mov r1, #0x200
    mov r2, #128
1:  strh r1, [r0], #8
    subs r2, r2, #1
    bne 1b
    bx lr

set_up_sound:
    mov r1, #0x80
    strh r1, [r4, #SOUNDCNT_X]
    ldr r1, =0x1177             @ the first square wave, left and right, full volume
    add r0, r4, #SOUNDCNT_L
    strh r1, [r0]
    mov r1, #2
    strh r1, [r0, #2]
    mov r1, #0
    strh r1, [r4, #0x60]        @ no sweep
    bx lr

@ Starts the tone when A goes down, and a silent one when it comes up. r1: what went down.
sound:
    ldr r2, =0xF080             @ full volume, half of the time high
    tst r1, #KEY_A
    bne 1f
    mov r2, #0x0080
    tst r7, #KEY_A
    bxne lr
1:  strh r2, [r4, #SOUND1CNT_H]
    ldr r2, =0x8000 + 2048 - 298    @ 131072 / 298 = 440 Hz
    strh r2, [r4, #SOUND1CNT_X]
    bx lr

signature:
    .ascii "VELM"
    .ltorg
    .balign 4
    .space 0x400                @ no cartridge is as small as this program
