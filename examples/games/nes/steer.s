; A white square on a blue ground that the pad steers, a tone while A is held, and a battery save
; that counts: what a frontend has to carry from end to end, in one screen.
;
; Battery RAM: $6000 "VELM" once set up, $6004 starts, $6006 presses of A, both 16 bits.

.segment "HEADER"
    .byte "NES", $1A
    .byte 1, 1          ; 16 KiB of program, 8 KiB of tiles
    .byte $12, 0        ; mapper 1, whose board has battery RAM at $6000
    .res 8

PPU_CONTROL = $2000
PPU_MASK    = $2001
PPU_STATUS  = $2002
OAM_ADDRESS = $2003
PPU_SCROLL  = $2005
PPU_ADDRESS = $2006
PPU_DATA    = $2007
PULSE       = $4000
OAM_DMA     = $4014
SOUND_ON    = $4015
PAD         = $4016

sprites  = $0200        ; the page that DMA copies to the picture unit
saved    = $6000
starts   = $6004
presses  = $6006

BLUE  = $02
WHITE = $30

.segment "ZEROPAGE"
held:    .res 1         ; A B Select Start Up Down Left Right, A in bit 7
before:  .res 1
square_x: .res 1
square_y: .res 1

.segment "CODE"

reset:
    sei
    cld
    ldx #$40
    stx $4017           ; no frame interrupt
    ldx #$FF
    txs
    inx
    stx PPU_CONTROL
    stx PPU_MASK
    bit PPU_STATUS
:   bit PPU_STATUS      ; the picture unit takes two frames to wake up
    bpl :-
:   bit PPU_STATUS
    bpl :-

    lda #$80            ; mapper 1: a bit-by-bit register, emptied first
    sta $8000
    lda #$0E            ; fixed last program bank, one bank of tiles
    ldx #5
:   sta $8000
    lsr a
    dex
    bne :-
    lda #0              ; program bank 0, battery RAM on
    ldx #5
:   sta $E000
    dex
    bne :-

    jsr count_start
    jsr set_colours
    jsr clear_background
    jsr hide_sprites

    lda #64
    sta square_x
    sta square_y
    lda #0
    sta held

    lda #1
    sta SOUND_ON
    lda #$B0            ; square wave, constant volume, silent
    sta PULSE
    lda #$08            ; no sweep
    sta PULSE + 1
    lda #253            ; 1789773 / (16 * (253 + 1)) = 440 Hz
    sta PULSE + 2
    lda #0
    sta PULSE + 3

    lda #$A0            ; interrupt at each frame, sprites of 8 by 16
    sta PPU_CONTROL
    lda #$1E
    sta PPU_MASK
forever:
    jmp forever

count_start:
    ldx #3
:   lda saved, x
    cmp signature, x
    bne @fresh
    dex
    bpl :-
    jmp @count
@fresh:
    ldx #3
:   lda signature, x
    sta saved, x
    lda #0
    sta starts, x       ; both counters
    dex
    bpl :-
@count:
    inc starts
    bne :+
    inc starts + 1
:   rts

set_colours:
    ldx #$3F
    ldy #$00
    stx PPU_ADDRESS
    sty PPU_ADDRESS
    lda #BLUE
    ldx #16
:   sta PPU_DATA
    dex
    bne :-
    lda #BLUE
    sta PPU_DATA
    lda #WHITE
    ldx #15
:   sta PPU_DATA
    dex
    bne :-
    rts

clear_background:
    lda #$20
    sta PPU_ADDRESS
    lda #0
    sta PPU_ADDRESS
    ldy #8              ; both screens, 8 pages
    ldx #0
:   sta PPU_DATA
    inx
    bne :-
    dey
    bne :-
    rts

hide_sprites:
    lda #$F0            ; below the picture
    ldx #0
:   sta sprites, x
    inx
    bne :-
    rts

frame:
    lda #0
    sta OAM_ADDRESS
    lda #>sprites
    sta OAM_DMA
    lda #0
    sta PPU_SCROLL
    sta PPU_SCROLL
    jsr read_pad
    jsr count_press
    jsr sound
    jsr steer
    jsr place_square
    rti

read_pad:
    lda held
    sta before
    lda #1
    sta PAD
    sta held            ; eight shifts push this bit out again
    lsr a
    sta PAD
:   lda PAD
    lsr a
    rol held
    bcc :-
    rts

count_press:
    lda before
    eor #$FF
    and held
    bpl :+              ; A did not go down in this frame
    inc presses
    bne :+
    inc presses + 1
:   rts

sound:
    ldx #$B0
    lda held
    bpl :+
    ldx #$BC
:   stx PULSE
    rts

steer:
    lda held
    lsr a
    bcc :+
    inc square_x
:   lsr a
    bcc :+
    dec square_x
:   lsr a
    bcc :+
    inc square_y
:   lsr a
    bcc :+
    dec square_y
:   rts

place_square:           ; 16 by 16 out of two sprites
    lda square_y
    sta sprites
    sta sprites + 4
    lda #2
    sta sprites + 1
    sta sprites + 5
    lda #0
    sta sprites + 2
    sta sprites + 6
    lda square_x
    sta sprites + 3
    clc
    adc #8
    sta sprites + 7
    rts

signature:
    .byte "VELM"

ignore:
    rti

.segment "VECTORS"
    .addr frame, reset, ignore

.segment "TILES"
    .res 32             ; tiles 0 and 1: empty
    .res 32, $FF        ; tiles 2 and 3: full
