' A constant's value may use operators and other constants, also those that come later.
'> 12 ab True 3.5
Const kTwelve = kTen + 2
Const kTen = 10
Const kText = "a" & "b", kTruth = 2 > 1
Const kHalf As Double = 7 / 2

Sub main()
    Debug.Print kTwelve & " " & kText & " " & kTruth & " " & kHalf
End Sub
