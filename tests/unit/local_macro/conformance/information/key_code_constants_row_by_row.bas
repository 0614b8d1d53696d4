' The code of every key: mouse buttons, control keys, digits, letters, number pad and function keys.
'> 1 2 3 4
'> 8 9 12 13 16 17 18 19 20 27 32
'> 33 34 35 36 37 38 39 40
'> 41 42 43 44 45 46 47 144
'> 48 49 50 51 52 53 54 55 56 57
'> 65 66 67 68 69 70 71 72 73 74 75 76 77
'> 78 79 80 81 82 83 84 85 86 87 88 89 90
'> 96 97 98 99 100 101 102 103 104 105
'> 106 107 108 109 110 111
'> 112 113 114 115 116 117 118 119
'> 120 121 122 123 124 125 126 127
Sub main()
    Debug.Print Join(Array(vbKeyLButton, vbKeyRButton, vbKeyCancel, vbKeyMButton), " ")
    Debug.Print Join(Array(vbKeyBack, vbKeyTab, vbKeyClear, vbKeyReturn, vbKeyShift, vbKeyControl, vbKeyMenu, vbKeyPause, vbKeyCapital, vbKeyEscape, vbKeySpace), " ")
    Debug.Print Join(Array(vbKeyPageUp, vbKeyPageDown, vbKeyEnd, vbKeyHome, vbKeyLeft, vbKeyUp, vbKeyRight, vbKeyDown), " ")
    Debug.Print Join(Array(vbKeySelect, vbKeyPrint, vbKeyExecute, vbKeySnapshot, vbKeyInsert, vbKeyDelete, vbKeyHelp, vbKeyNumlock), " ")
    Debug.Print Join(Array(vbKey0, vbKey1, vbKey2, vbKey3, vbKey4, vbKey5, vbKey6, vbKey7, vbKey8, vbKey9), " ")
    Debug.Print Join(Array(vbKeyA, vbKeyB, vbKeyC, vbKeyD, vbKeyE, vbKeyF, vbKeyG, vbKeyH, vbKeyI, vbKeyJ, vbKeyK, vbKeyL, vbKeyM), " ")
    Debug.Print Join(Array(vbKeyN, vbKeyO, vbKeyP, vbKeyQ, vbKeyR, vbKeyS, vbKeyT, vbKeyU, vbKeyV, vbKeyW, vbKeyX, vbKeyY, vbKeyZ), " ")
    Debug.Print Join(Array(vbKeyNumpad0, vbKeyNumpad1, vbKeyNumpad2, vbKeyNumpad3, vbKeyNumpad4, vbKeyNumpad5, vbKeyNumpad6, vbKeyNumpad7, vbKeyNumpad8, vbKeyNumpad9), " ")
    Debug.Print Join(Array(vbKeyMultiply, vbKeyAdd, vbKeySeparator, vbKeySubtract, vbKeyDecimal, vbKeyDivide), " ")
    Debug.Print Join(Array(vbKeyF1, vbKeyF2, vbKeyF3, vbKeyF4, vbKeyF5, vbKeyF6, vbKeyF7, vbKeyF8), " ")
    Debug.Print Join(Array(vbKeyF9, vbKeyF10, vbKeyF11, vbKeyF12, vbKeyF13, vbKeyF14, vbKeyF15, vbKeyF16), " ")
End Sub
