' The constants of weeks, of calls, of windows and of three states, and the first number for errors of one's own.
'> 0 1 2 3
'> 1 2 4 8
'> 0 1 2 3 4 6
'> -1 0 -2
'> -2147221504
'> 13 14 36
Sub main()
    Debug.Print vbUseSystem & " " & vbFirstJan1 & " " & vbFirstFourDays & " " & vbFirstFullWeek
    Debug.Print vbMethod & " " & vbGet & " " & vbLet & " " & vbSet
    Debug.Print vbHide & " " & vbNormalFocus & " " & vbMinimizedFocus & " " & vbMaximizedFocus & " " & vbNormalNoFocus & _
        " " & vbMinimizedNoFocus
    Debug.Print vbTrue & " " & vbFalse & " " & vbUseDefault
    Debug.Print "" & vbObjectError
    Debug.Print vbDataObject & " " & vbDecimal & " " & vbUserDefinedType
End Sub
