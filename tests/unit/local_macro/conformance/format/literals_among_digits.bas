' Quoted text, a character behind \, and the signs - + $ ( ) and blank stand for themselves.
'> 5 pcs
'> 5 kg
'> $ 5
'> +(5)-
Sub main()
    Debug.Print Format(5, "0 ""pcs""")
    Debug.Print Format(5, "0 \k\g")
    Debug.Print Format(5, "$ 0")
    Debug.Print Format(5, "+(0)-")
End Sub
